// SPDX-License-Identifier: MIT
#include "tool_bar_commands.h"
#include "tool_bar_content.h"
#include "tool_bar_p.h"
#include "tool_button_p.h"

#include <ui_base/commands/command_group.h>
#include <ui_base/commands/flyout_command.h>

#include <QPointer>
#include <QWidgetAction>

namespace Vela::UiBase {

namespace {

/// The widget that an action opens, or null.
QWidget* widgetOf(QAction& action) {
  if (auto* const command = dynamic_cast<FlyoutCommand*>(&action))
    return command->simpleFlyout();
  auto* const widgetAction = qobject_cast<QWidgetAction*>(&action);
  return widgetAction ? widgetAction->defaultWidget() : nullptr;
}

QWidget* layerOf(ToolBar& toolBar) { return toolBar.parentWidget() ? toolBar.parentWidget() : &toolBar; }

} // namespace

void ToolBar::AddCommandGroup(CommandGroup* group) { AddCommandGroup(group, nullptr); }

void ToolBar::AddCommandGroup(CommandGroup* group, CommandGroup*) {
  if (!group || !d->commands->add(*group))
    return;
  if (group->isGrid())
    d->content->setGroupColumns(group->commandId(), group->gridSize());
  d->commands->update(*group);
}

ToolButton* ToolBar::AddSingleCommand(CommandBase* command, CommandGroup* group) {
  if (!command)
    return nullptr;
  return CreateToolButton(layerOf(*this), command, *this,
                          group ? group->commandId() : d->commands->groupName(*command));
}

ToolButton* ToolBar::AddButton(ToolBar* bar, CommandGroup* group, int index) {
  if (!bar || !group)
    return nullptr;
  return CreateToolButton(layerOf(*bar), group, *bar, d->commands->groupName(*group), index);
}

ToolButton* ToolBar::CreateToolButton(QWidget* parent, QAction* action, ToolBar& bar, const QString& group,
                                      int index, bool applyTooltipParams, bool applyMenuParams) {
  if (!parent || !action)
    return nullptr;
  if (auto* const commands = dynamic_cast<CommandGroup*>(action)) {
    ToolBar* const menu = bar.CreateSubToolBar(commands);
    if (menu) {
      bar.d->adopt(*menu);
      menu->AddCommandGroup(commands);
    }
    ToolButton* const button =
        bar.AddAction(action, {}, menu, applyMenuParams, commands->objectName(), group, index);
    commands->setToolButton(button);
    return button;
  }
  const QPointer<ToolBar> alive(&bar);
  const QPointer<QAction> shown(action);
  QWidget* const menu = widgetOf(*action); // which may be made now
  if (!alive)
    return nullptr;
  return menu ? bar.AddAction(shown, menu, group, index, applyTooltipParams, applyMenuParams)
              : bar.AddAction(shown, group, index, applyTooltipParams, applyMenuParams);
}

ToolButton* ToolBar::AddAction(QAction* action, const QString& group, int index, bool applyTooltipParams,
                               bool applyMenuParams) {
  if (!action)
    return nullptr;
  auto* const button = new ToolButton(action, this, d->content->panel(group));
  d->OnButtonCreated(*button, group, applyTooltipParams, applyMenuParams, index);
  return button;
}

ToolButtonWithButtonMenu* ToolBar::AddAction(QAction* action, const QIcon& icon, ToolBar* menu,
                                             bool applyParams, const QString& name, const QString& group,
                                             int index) {
  auto* const button = new ToolButtonWithButtonMenu(icon, this, menu, name, d->content->panel(group));
  button->d->hasOwnIcon = !icon.isNull();
  if (action)
    button->addAction(action);
  d->OnButtonCreated(*button, group, applyParams, applyParams, index);
  return button;
}

ToolButtonWithWidgetMenu* ToolBar::AddAction(QAction* action, QWidget* menu, const QString& group, int index,
                                             bool applyTooltipParams, bool applyMenuParams) {
  if (!action)
    return nullptr;
  auto* const button = new ToolButtonWithWidgetMenu(action, this, menu, d->content->panel(group));
  d->OnButtonCreated(*button, group, applyTooltipParams, applyMenuParams, index);
  return button;
}

void ToolBar::AddToolButton(ToolButton* button, const QString& group, int index, bool applyTooltipParams,
                            bool applyMenuParams) {
  if (button && button->OwningToolBar() == this && !Buttons().contains(button))
    d->OnButtonCreated(*button, group, applyTooltipParams, applyMenuParams, index);
}

ToolBar* ToolBar::CreateSubToolBar(CommandGroup* group) {
  const Qt::ToolBarArea across = isRightToLeft() ? Qt::RightToolBarArea : Qt::LeftToolBarArea;
  auto* const menu =
      new ToolBar(parentWidget(), Orientation() == Qt::Horizontal ? across : Qt::TopToolBarArea);
  d->setUpSubToolBar(*menu, group);
  return menu;
}

ToolBar* ToolBar::CreateActionPanelToolBar(QWidget* parent, const ToolBar& base) {
  auto* const menu = new ToolBar(parent, Qt::TopToolBarArea);
  base.d->setUpSubToolBar(*menu, nullptr);
  return menu;
}

ToolButtonWithButtonMenu* ToolBar::CreateMainToolBarButtonMenu(ToolBar& bar, const QIcon& icon,
                                                               const QString& name, const QString& group,
                                                               int index) {
  ToolBar* const menu = bar.CreateSubToolBar(nullptr);
  if (menu) {
    bar.d->adopt(*menu);
    menu->setAccessibleName(name);
  }
  return bar.AddAction(nullptr, icon, menu, true, name, group, index);
}

void ToolBar::RemoveCommand(CommandBase* command) {
  if (!command)
    return;
  // Who hears of a menu that closes may end the command, the bar and its buttons.
  const QPointer<ToolBar> self(this);
  const QPointer<QAction> removed(command);
  const QList<ToolButtonWithMenu*> menus = MenuButtons(false);
  const QList<QPointer<ToolButtonWithMenu>> openers(menus.cbegin(), menus.cend());
  for (const QPointer<ToolButtonWithMenu>& opener : openers) {
    if (auto* const menu = opener && removed ? qobject_cast<ToolBar*>(opener->GetMenu()) : nullptr)
      menu->RemoveCommand(command);
  }
  if (auto* const group = self && removed ? dynamic_cast<CommandGroup*>(command) : nullptr)
    d->commands->remove(*group);
  if (self && removed)
    RemoveSingleCommand(command);
}

void ToolBar::RemoveSingleCommand(CommandBase* command) {
  d->forEachButton([this, command](ToolButton& button) {
    if (actionOf(button) == command)
      d->removeButton(button);
  });
}

} // namespace Vela::UiBase
