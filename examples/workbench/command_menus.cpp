// SPDX-License-Identifier: MIT
#include "command_menus.h"

#include <ui_base/commands/command_group.h>

#include <QMenu>
#include <QMenuBar>

namespace Workbench {

using namespace Vela::UiBase;

CommandMenus::CommandMenus(QMenuBar& bar) {
  QMenu* const file = bar.addMenu(tr("&File"));
  addSection(file, FileSection, false);
  addSection(file, ExitSection, true);
  QMenu* const edit = bar.addMenu(tr("&Edit"));
  addSection(edit, EditSection, false);
  addSection(edit, MeshSection, true);
  QMenu* const selection = bar.addMenu(tr("&Selection"));
  addSection(selection, SelectSection, false);
  addSection(selection, SelectedSection, true);
  QMenu* const tools = bar.addMenu(tr("&Tools"));
  addSection(tools, ToolsSection, false);
  addSection(tools, MeasureSection, true);
  QMenu* const view = bar.addMenu(tr("&View"));
  addSection(view, PageSection, false);
  addSection(view, ViewSection, false);
  addSection(view, LookSection, true);
  QMenu* const photograph = bar.addMenu(tr("&Photograph"));
  photograph->menuAction()->setVisible(false); // its commands come when their page is seen first
  addSection(photograph, PhotoSection, true);
  addSection(bar.addMenu(tr("&Help")), HelpSection, true);
}

void CommandMenus::addSection(QMenu* menu, const QString& name, bool last) {
  m_sections.insert(name, {menu, last ? nullptr : menu->addSeparator()});
}

void CommandMenus::commandAdded(CmdMgr*, CommandBase* command) {
  if (!command)
    return;
  const Section section = m_sections.value(command->baseGroupName());
  if (section.menu)
    insert(section, *command, command->commandId());
}

void CommandMenus::insert(const Section& section, CommandBase& command, const QString& id) {
  const auto* const group = dynamic_cast<const CommandGroup*>(&command);
  if (!group) {
    section.menu->insertAction(section.end, &command);
    section.menu->menuAction()->setVisible(true);
    m_actions.insert(id, &command);
  } else if (!group->text().isEmpty()) {
    m_actions.insert(id, addGroupMenu(*section.menu, section.end, *group)->menuAction());
  } else {
    const CommandBag& children = group->commandBag();
    for (int i = 0; i < children.count(); ++i)
      insert(section, *children.commandAt(i), id);
  }
}

void CommandMenus::commandRemoved(CmdMgr*, QString id) {
  const auto actions = m_actions.values(id);
  m_actions.remove(id);
  for (QAction* const action : actions) {
    if (!action)
      continue;
    if (QMenu* const subMenu = action->menu())
      delete subMenu;
    else
      for (const Section& section : std::as_const(m_sections)) {
        if (section.menu)
          section.menu->removeAction(action);
      }
  }
}

QMenu* addGroupMenu(QMenu& menu, QAction* before, const CommandGroup& group) {
  auto* const subMenu = new QMenu(group.text(), &menu);
  subMenu->setIcon(group.icon());
  const CommandBag& children = group.commandBag();
  for (int i = 0; i < children.count(); ++i)
    subMenu->addAction(children.commandAt(i));
  menu.insertMenu(before, subMenu);
  return subMenu;
}

} // namespace Workbench
