// SPDX-License-Identifier: MIT
#include "command_menus.h"

#include <ui_base/commands/command_base.h>

#include <QCoreApplication>
#include <QMenu>
#include <QMenuBar>

namespace Workbench {

using namespace Vela::UiBase;

namespace {

struct MenuText {
  Q_DECLARE_TR_FUNCTIONS(Workbench::CommandMenus)
};

} // namespace

CommandMenus::CommandMenus(QMenuBar& bar) {
  QMenu* const file = bar.addMenu(MenuText::tr("&File"));
  addSection(file, FileSection, false);
  addSection(file, ExitSection, true);
  QMenu* const view = bar.addMenu(MenuText::tr("&View"));
  addSection(view, ViewSection, false);
  addSection(view, LookSection, true);
  addSection(bar.addMenu(MenuText::tr("&Help")), HelpSection, true);
}

void CommandMenus::addSection(QMenu* menu, const QString& name, bool last) {
  m_sections.insert(name, {menu, last ? nullptr : menu->addSeparator()});
}

void CommandMenus::commandAdded(CmdMgr*, CommandBase* command) {
  if (!command)
    return;
  const Section section = m_sections.value(command->baseGroupName());
  if (!section.menu)
    return;
  section.menu->insertAction(section.end, command);
  m_actions.insert(command->commandId(), command);
}

void CommandMenus::commandRemoved(CmdMgr*, QString id) {
  QAction* const action = m_actions.take(id);
  if (!action)
    return;
  for (const Section& section : std::as_const(m_sections)) {
    if (section.menu)
      section.menu->removeAction(action);
  }
}

} // namespace Workbench
