// SPDX-License-Identifier: MIT
#include "tool_bar_commands.h"

#include "tool_bar_content.h"
#include "tool_bar_p.h"

#include <ui_base/commands/command_group.h>

#include <QHash>
#include <QSet>

#include <algorithm>
#include <utility>

namespace Vela::UiBase {

namespace {

QHash<const QAction*, ToolButton*> buttonsByAction(const QList<ToolButton*>& buttons) {
  QHash<const QAction*, ToolButton*> byAction;
  for (ToolButton* const button : buttons)
    byAction.insert(actionOf(*button), button);
  return byAction;
}

} // namespace

bool standsInPanel(const CommandGroup& group) { return group.isVirtualGroup() || group.icon().isNull(); }

QAction* actionOf(const ToolButton& button) {
  QAction* const bound = button.Action();
  return bound ? bound : button.actions().value(0);
}

ToolBarCommands::ToolBarCommands(ToolBar& toolBar) : QObject(&toolBar), m_toolBar(toolBar) {}

ToolBarCommands::~ToolBarCommands() {
  for (const Shown& shown : m_shown) {
    if (shown.group && shown.group->toolbar() == &m_toolBar)
      shown.group->setToolbar(nullptr);
  }
}

ToolBarCommands::Shown* ToolBarCommands::find(const CommandGroup& group) {
  const auto found = std::find_if(m_shown.begin(), m_shown.end(),
                                  [&group](const Shown& shown) { return shown.group == &group; });
  return found == m_shown.end() ? nullptr : &*found;
}

bool ToolBarCommands::shows(const CommandGroup& group) const {
  return std::any_of(m_shown.cbegin(), m_shown.cend(),
                     [&group](const Shown& shown) { return shown.group == &group; });
}

bool ToolBarCommands::add(CommandGroup& group) {
  if (shows(group))
    return false;
  m_shown.push_back({&group, group.commandId(), {}, false});
  group.setToolbar(&m_toolBar);
  connect(&group, &CommandGroup::childrenChanged, this, [this, &group] { scheduleUpdate(group); });
  connect(&group, &QObject::destroyed, this, &ToolBarCommands::removeDead);
  return true;
}

void ToolBarCommands::remove(CommandGroup& group) {
  const Shown* const shown = find(group);
  if (!shown)
    return;
  const QList<QPointer<QAction>> children = shown->children;
  const QString name = shown->name;
  std::erase_if(m_shown, [&group](const Shown& entry) { return entry.group == &group; });
  disconnect(&group, nullptr, this, nullptr);
  if (group.toolbar() == &m_toolBar)
    group.setToolbar(nullptr);
  const QPointer<ToolBarCommands> self(this);
  for (const QPointer<QAction>& child : children) {
    if (auto* const command = self ? dynamic_cast<CommandBase*>(child.data()) : nullptr)
      removeChild(*command, name);
  }
}

// Commands may live on in other groups.
void ToolBarCommands::removeDead() {
  std::vector<Shown> dead;
  for (const Shown& shown : m_shown) {
    if (!shown.group)
      dead.push_back(shown);
  }
  std::erase_if(m_shown, [](const Shown& shown) { return !shown.group; });
  const QPointer<ToolBarCommands> self(this);
  for (const Shown& shown : dead) {
    for (const QPointer<QAction>& child : shown.children) {
      if (auto* const command = self ? dynamic_cast<CommandBase*>(child.data()) : nullptr)
        removeChild(*command, shown.name);
    }
  }
}

void ToolBarCommands::scheduleUpdate(CommandGroup& group) {
  if (Shown* const shown = find(group))
    shown->dirty = true;
  if (std::exchange(m_scheduled, true))
    return;
  QMetaObject::invokeMethod(
      this,
      [this] {
        m_scheduled = false;
        QList<QPointer<CommandGroup>> dirty;
        for (Shown& shown : m_shown) {
          if (std::exchange(shown.dirty, false))
            dirty.append(shown.group);
        }
        const QPointer<ToolBarCommands> self(this);
        for (const QPointer<CommandGroup>& changed : std::as_const(dirty)) {
          if (self && changed)
            update(*changed);
        }
      },
      Qt::QueuedConnection);
}

QList<QPointer<QAction>> ToolBarCommands::chosen(const CommandBag& bag) const {
  QList<QPointer<QAction>> commands;
  for (int i = 0; i < bag.count(); ++i) {
    if (!m_chooser || m_chooser(*bag.commandAt(i)))
      commands.append(bag.commandAt(i));
  }
  return commands;
}

void ToolBarCommands::update(CommandGroup& group) {
  const CommandBag bag = group.commandBag(); // a copy, which keeps the commands
  const QPointer<ToolBarCommands> self(this);
  const QPointer<CommandGroup> guarded(&group);
  const QList<QPointer<QAction>> children = chosen(bag);
  Shown* const shown = find(group);
  if (!shown)
    return;
  const QString name = shown->name;
  const QList<QPointer<QAction>> before = std::exchange(shown->children, children);
  for (const QPointer<QAction>& child : before) {
    auto* const gone = children.contains(child) ? nullptr : dynamic_cast<CommandBase*>(child.data());
    if (self && gone)
      removeChild(*gone, name);
  }
  if (self && guarded)
    arrange(group, children, before);
}

void ToolBarCommands::updateAll() {
  QList<QPointer<CommandGroup>> groups;
  for (const Shown& shown : m_shown)
    groups.append(shown.group);
  const QPointer<ToolBarCommands> self(this);
  for (const QPointer<CommandGroup>& group : std::as_const(groups)) {
    if (self && group)
      update(*group);
  }
}

void ToolBarCommands::follow(CommandGroup& group) {
  add(group);
  update(group);
}

void ToolBarCommands::followOnly(const CommandGroup& group) {
  QList<QPointer<CommandGroup>> others;
  for (const Shown& shown : m_shown) {
    if (shown.group != &group)
      others.append(shown.group);
  }
  const QPointer<ToolBarCommands> self(this);
  for (const QPointer<CommandGroup>& other : std::as_const(others)) {
    if (self && other)
      remove(*other);
  }
}

// The same command may stand in another group here.
void ToolBarCommands::removeChild(CommandBase& child, const QString& group) {
  const QList<CommandGroup*> holders = child.holdingGroups();
  if (std::none_of(holders.cbegin(), holders.cend(),
                   [this](const CommandGroup* other) { return shows(*other); }))
    m_toolBar.RemoveCommand(&child);
  else if (ToolButton* const button =
               buttonsByAction(ToolBarPrivate::of(m_toolBar).content->buttons(group)).value(&child))
    ToolBarPrivate::of(m_toolBar).removeButton(*button);
}

void ToolBarCommands::arrange(CommandGroup& group, const QList<QPointer<QAction>>& children,
                              const QList<QPointer<QAction>>& before) {
  const QPointer<ToolBarCommands> self(this);
  const QString name = group.commandId();
  const QSet<const QAction*> known(before.cbegin(), before.cend());
  QHash<const QAction*, QPointer<ToolButton>> present;
  for (ToolButton* const button : ToolBarPrivate::of(m_toolBar).content->buttons(name))
    present.insert(actionOf(*button), button);
  int index = 0;
  for (const QPointer<QAction>& each : children) {
    auto* const child = dynamic_cast<CommandBase*>(each.data());
    if (!child || !self || !shows(group))
      continue;
    ToolButton* const button =
        known.contains(child) ? present.value(child).data() : addChild(*child, group, index);
    if (!button || !self)
      continue;
    ToolBarPrivate::of(m_toolBar).content->move(*button, name, index);
    ++index;
  }
}

// Null for what has no button in the panel of the group.
ToolButton* ToolBarCommands::addChild(CommandBase& child, CommandGroup& group, int index) {
  auto* const childGroup = dynamic_cast<CommandGroup*>(&child);
  if (!childGroup)
    return ToolBarPrivate::of(m_toolBar).addSingleCommand(&child, &group);
  if (!standsInPanel(*childGroup))
    return ToolBarPrivate::of(m_toolBar).addButton(childGroup, index);
  ToolBarPrivate::of(m_toolBar).addCommandGroup(childGroup, &group);
  return nullptr;
}

QString ToolBarCommands::groupName(const CommandBase& command) const {
  const QList<CommandGroup*> holders = command.holdingGroups();
  for (const CommandGroup* const holder : holders) {
    if (shows(*holder))
      return holder->commandId();
  }
  return holders.isEmpty() ? QString() : holders.constLast()->commandId();
}

// --- the toolbar's part

void ToolBar::EnableActions() {
  if (std::exchange(d->enabling, true))
    return;
  const QPointer<ToolBar> self(this);
  QList<QPointer<ToolButton>> buttons;
  d->forEachButton([&buttons](ToolButton& button) { buttons.append(&button); });
  for (const QPointer<ToolButton>& button : std::as_const(buttons)) {
    if (button)
      button->EnableActions();
    const auto* const opener = qobject_cast<ToolButtonWithMenu*>(button.data());
    if (auto* const menu = opener ? qobject_cast<ToolBar*>(opener->GetMenu()) : nullptr)
      menu->EnableActions();
  }
  if (self)
    d->enabling = false;
}

void ToolBar::AddCallbackHandler(ToolButton::IToolButtonCallbackHandler* handler, QAction* action) {
  if (!handler || !action)
    return;
  const std::pair<QPointer<QAction>, ToolBarPrivate::CallbackHandler*> entry(action, handler);
  if (!d->callbackHandlers.contains(entry))
    d->callbackHandlers.append(entry);
  d->forEachButton([this](ToolButton& button) { d->applyHandlers(button); });
  d->scheduleEnableActions();
}

void ToolBar::RemoveCallbackHandler(ToolButton::IToolButtonCallbackHandler* handler) {
  d->callbackHandlers.removeIf([handler](const auto& entry) { return entry.second == handler; });
  d->forEachButton([handler](ToolButton& button) {
    button.RemoveCallbackHandler(handler);
    const auto* const opener = qobject_cast<ToolButtonWithMenu*>(&button);
    if (auto* const menu = opener ? qobject_cast<ToolBar*>(opener->GetMenu()) : nullptr)
      menu->RemoveCallbackHandler(handler);
  });
}

} // namespace Vela::UiBase
