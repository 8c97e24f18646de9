// SPDX-License-Identifier: MIT
#include "menu_entry_accessible.h"

#include "command_base.h"
#include "command_tips.h"

#include <ui_base/core/language.h>

#include <QMenu>
#include <QWindow>

#include <algorithm>

namespace Vela::UiBase {

namespace {

// Of several menus the one that is shown.
QMenu* menuWith(const QAction& entry) {
  QMenu* first = nullptr;
  const QList<QObject*> objects = entry.associatedObjects();
  for (QObject* const object : objects) {
    auto* const menu = qobject_cast<QMenu*>(object);
    if (menu && menu->isVisible())
      return menu;
    first = first ? first : menu;
  }
  return first;
}

} // namespace

MenuEntryAccessible::MenuEntryAccessible(QAction& entry) : m_entry(&entry) {}

QAccessibleInterface* MenuEntryAccessible::make(const QString&, QObject* object) {
  auto* const command = dynamic_cast<CommandBase*>(object);
  return command && menuWith(*command) ? new MenuEntryAccessible(*command) : nullptr;
}

QMenu* MenuEntryAccessible::menu() const { return m_entry ? menuWith(*m_entry) : nullptr; }

bool MenuEntryAccessible::isValid() const { return menu(); }

QObject* MenuEntryAccessible::object() const { return m_entry; }

QWindow* MenuEntryAccessible::window() const {
  const QMenu* const owner = menu();
  return owner ? owner->windowHandle() : nullptr;
}

QAccessibleInterface* MenuEntryAccessible::parent() const {
  return QAccessible::queryAccessibleInterface(menu());
}

int MenuEntryAccessible::childCount() const { return m_entry && m_entry->menu() ? 1 : 0; }

QAccessibleInterface* MenuEntryAccessible::child(int index) const {
  return index == 0 && childCount() > 0 ? QAccessible::queryAccessibleInterface(m_entry->menu()) : nullptr;
}

int MenuEntryAccessible::indexOfChild(const QAccessibleInterface* child) const {
  return child && child == this->child(0) ? 0 : -1;
}

QAccessibleInterface* MenuEntryAccessible::childAt(int x, int y) const {
  QAccessibleInterface* const submenu = child(0);
  return submenu && submenu->rect().contains(x, y) ? submenu : nullptr;
}

QString MenuEntryAccessible::text(QAccessible::Text kind) const {
  const QMenu* const owner = menu();
  if (!owner)
    return {};
  switch (kind) {
  case QAccessible::Name:
    return withoutMnemonic(m_entry->text());
  case QAccessible::Description:
    return CommandTips::tipOf(*owner, *m_entry);
  case QAccessible::Accelerator:
    return m_entry->shortcut().isEmpty() ? QKeySequence::mnemonic(m_entry->text()).toString()
                                         : m_entry->shortcut().toString();
  default:
    return {};
  }
}

QRect MenuEntryAccessible::rect() const {
  const QMenu* const owner = menu();
  if (!owner)
    return {};
  const QRect area = owner->actionGeometry(m_entry);
  return {owner->mapToGlobal(area.topLeft()), area.size()};
}

QAccessible::Role MenuEntryAccessible::role() const {
  return m_entry && m_entry->isSeparator() ? QAccessible::Separator : QAccessible::MenuItem;
}

QAccessible::State MenuEntryAccessible::state() const {
  QAccessible::State state;
  const QMenu* const owner = menu();
  if (!owner)
    return state;
  state.invisible = !owner->isVisible() || !m_entry->isVisible();
  state.disabled = m_entry->isSeparator() || !m_entry->isEnabled();
  state.focusable = !state.disabled;
  state.focused = owner->activeAction() == m_entry;
  state.hotTracked = true;
  state.checkable = m_entry->isCheckable();
  state.checked = m_entry->isChecked();
  state.hasPopup = m_entry->menu() != nullptr;
  return state;
}

void* MenuEntryAccessible::interface_cast(QAccessible::InterfaceType type) {
  return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this) : nullptr;
}

QStringList MenuEntryAccessible::actionNames() const {
  if (!m_entry || state().disabled)
    return {};
  return {m_entry->menu() ? showMenuAction() : pressAction()};
}

void MenuEntryAccessible::doAction(const QString& name) {
  if (!actionNames().contains(name))
    return;
  if (name == pressAction())
    m_entry->trigger();
  else
    menu()->setActiveAction(m_entry);
}

QStringList MenuEntryAccessible::keyBindingsForAction(const QString& name) const {
  return actionNames().contains(name) ? QStringList{text(QAccessible::Accelerator)} : QStringList();
}

} // namespace Vela::UiBase
