// SPDX-License-Identifier: MIT
#include "command_bar.h"

#include <ui_base/commands/command_group.h>
#include <workbench/command_menus.h>
#include <workbench/panels/command_tooltip.h>

#include <QToolBar>

namespace Workbench {

using namespace Vela::UiBase;

namespace {

constexpr int IconSize = 20; // px

} // namespace

CommandBar::CommandBar(QToolBar& bar) : m_bar(&bar) {
  bar.setMovable(false);
  bar.setIconSize({IconSize, IconSize});
  bar.setContextMenuPolicy(Qt::PreventContextMenu);
  for (const QLatin1String section : {FileSection, EditSection, MeshSection, ToolsSection, ViewSection})
    m_ends.insert(section, bar.addSeparator());
  m_ends.value(ViewSection)->setVisible(false);
}

void CommandBar::commandAdded(CmdMgr*, CommandBase* command) {
  QAction* const end = command ? m_ends.value(command->baseGroupName()) : nullptr;
  if (end && m_bar)
    insert(end, *command, command->commandId());
}

void CommandBar::insert(QAction* end, CommandBase& command, const QString& id) {
  if (const auto* const group = dynamic_cast<const CommandGroup*>(&command)) {
    const CommandBag& children = group->commandBag();
    for (int i = 0; i < children.count(); ++i)
      insert(end, *children.commandAt(i), id);
    return;
  }
  if (command.icon().isNull())
    return;
  m_bar->insertAction(end, &command);
  m_actions.insert(id, &command);
  if (QWidget* const button = m_bar->widgetForAction(&command))
    new CommandTooltip(*button, command);
}

void CommandBar::commandRemoved(CmdMgr*, QString id) {
  const auto actions = m_actions.values(id);
  m_actions.remove(id);
  for (QAction* const action : actions) {
    if (action && m_bar)
      m_bar->removeAction(action);
  }
}

} // namespace Workbench
