// SPDX-License-Identifier: MIT
#include "command_menus.h"

#include <ui_base/commands/command_group.h>
#include <ui_base/core/language.h>
#include <ui_base/menus/menu_builder.h>
#include <workbench/commands/dark_palette_command.h>
#include <workbench/pages/workbench_pages.h>
#include <workbench/palette_item.h>

#include <QMenu>
#include <QToolButton>

#include <algorithm>

namespace Workbench {

using namespace Vela::UiBase;

namespace {

bool hasEntries(const QMenu& menu) {
  const QList<QAction*> actions = menu.actions();
  return std::any_of(actions.begin(), actions.end(),
                     [](const QAction* action) { return !action->isSeparator(); });
}

bool isOfUse(const QString& menu, int page) {
  static const QStringList ofMesh{QStringLiteral("edit"), QStringLiteral("selection"),
                                  QStringLiteral("tools")};
  if (menu == QLatin1String("photograph"))
    return page == PhotoPage;
  return page == MeshPage || !ofMesh.contains(menu);
}

QVector<QAction*> actionsOf(const CommandGroup& group) {
  QVector<QAction*> actions;
  for (int i = 0; i < group.commandBag().count(); ++i)
    actions += group.commandBag().commandAt(i);
  return actions;
}

} // namespace

CommandMenus::CommandMenus(MenuBuilder& menus) : m_menus(&menus) {
  addMenu(QStringLiteral("file"), QT_TR_NOOP("&File"), {FileSection, ExitSection});
  addMenu(QStringLiteral("edit"), QT_TR_NOOP("&Edit"), {EditSection, MeshSection});
  addMenu(QStringLiteral("selection"), QT_TR_NOOP("&Selection"), {SelectSection, SelectedSection});
  addMenu(QStringLiteral("tools"), QT_TR_NOOP("&Tools"), {ToolsSection, MeasureSection});
  addMenu(QStringLiteral("view"), QT_TR_NOOP("&View"), {PageSection, ViewSection, LookSection});
  addMenu(QStringLiteral("photograph"), QT_TR_NOOP("&Photograph"), {PhotoSection});
  addMenu(QStringLiteral("help"), QT_TR_NOOP("&Help"), {HelpSection});
  menus.GetMenuBarItem(QStringLiteral("photograph"))->hide(); // until its page is seen first
  menus.AddSeparator(false, -1);                              // what follows stands at the far end
}

void CommandMenus::showPage(int page) {
  m_page = page;
  showUsedItems();
}

void CommandMenus::addMenu(const QString& name, const char* text, const QStringList& sections) {
  m_menus->AddMenuBarItem(name, QIcon(), tr(text));
  QToolButton* const item = m_menus->GetMenuBarItem(name).data();
  keepTranslated(item, [item, text] { item->setText(tr(text)); });
  m_menus->AddDropDownMenu(name, QVector<QAction*>(), nullptr);
  QMenu* const menu = m_menus->GetMenu(name);
  for (const QString& section : sections) {
    const bool isLast = section == sections.constLast();
    m_sections.insert(section, {name, isLast ? nullptr : menu->addSeparator()});
  }
}

void CommandMenus::commandAdded(CmdMgr*, CommandBase* command) {
  if (!command || !m_menus)
    return;
  const auto section = m_sections.constFind(command->baseGroupName());
  if (section != m_sections.constEnd())
    insert(*section, *command, command->commandId());
  if (command->commandId() == DarkPaletteCommand::className())
    addPaletteItem(*m_menus, *command);
  showUsedItems();
}

void CommandMenus::insert(const Section& section, CommandBase& command, const QString& id) {
  QMenu* const menu = m_menus->GetMenu(section.menu);
  if (!menu)
    return;
  const auto* const group = dynamic_cast<const CommandGroup*>(&command);
  if (!group) {
    menu->insertAction(section.end, &command);
    m_actions.insert(id, &command);
  } else if (!group->text().isEmpty()) {
    m_actions.insert(id, insertSubMenu(section, *group));
  } else {
    const CommandBag& children = group->commandBag();
    for (int i = 0; i < children.count(); ++i)
      insert(section, *children.commandAt(i), id);
  }
}

QAction* CommandMenus::insertSubMenu(const Section& section, const CommandGroup& group) {
  const QString name = group.commandId();
  m_menus->AddSubMenu(section.menu, {.name = name, .text = group.text(), .icon = group.icon()},
                      actionsOf(group));
  QAction* const entry = m_menus->GetMenu(name)->menuAction();
  QObject::connect(&group, &QAction::changed, entry, [entry, &group] { entry->setText(group.text()); });
  if (section.end)
    m_menus->GetMenu(section.menu)->insertAction(section.end, entry); // from the end to its section
  return entry;
}

void CommandMenus::commandRemoved(CmdMgr*, QString id) {
  const auto actions = m_actions.values(id);
  m_actions.remove(id);
  for (QAction* const action : actions) {
    if (!action || !m_menus)
      continue;
    if (QMenu* const subMenu = action->menu()) {
      delete subMenu;
      continue;
    }
    for (const Section& section : std::as_const(m_sections)) {
      if (QMenu* const menu = m_menus->GetMenu(section.menu))
        menu->removeAction(action);
    }
  }
  showUsedItems();
}

void CommandMenus::showUsedItems() {
  for (const Section& section : std::as_const(m_sections)) {
    const QMenu* const menu = m_menus ? m_menus->GetMenu(section.menu) : nullptr;
    if (menu)
      m_menus->GetMenuBarItem(section.menu)->setVisible(hasEntries(*menu) && isOfUse(section.menu, m_page));
  }
}

} // namespace Workbench
