// SPDX-License-Identifier: MIT
#include "menu_bar_overflow.h"

#include "menu_bar_menus.h"
#include "menu_bar_widget.h"

#include <QMenu>
#include <QToolButton>

namespace Vela::UiBase {

namespace {

QString textOf(const QToolButton& item) {
  if (!item.text().isEmpty())
    return item.text();
  return item.accessibleName().isEmpty() ? item.toolTip() : item.accessibleName();
}

} // namespace

MenuBarOverflow::MenuBarOverflow(MenuBarWidget* bar, MenuBarMenus* menus)
    : QObject(bar), m_bar(bar), m_menus(menus), m_menu(new QMenu(bar)) {
  connect(m_menu, &QMenu::aboutToShow, this, &MenuBarOverflow::fill);
}

void MenuBarOverflow::fill() {
  m_menu->clear();
  const QList<QToolButton*> items = m_bar->items();
  for (QToolButton* const item : items) {
    if (m_bar->overflows(item))
      addItem(*item);
  }
}

void MenuBarOverflow::addItem(QToolButton& item) {
  QMenu* const menu = m_menus->menuOf(&item);
  if (!menu || item.popupMode() == QToolButton::MenuButtonPopup)
    addClick(item);
  if (!menu)
    return;
  if (menu->title().isEmpty() || menu->parent() == m_bar)
    menu->setTitle(textOf(item));
  if (item.isEnabled())
    m_menu->addMenu(menu);
  else
    m_menu->addAction(textOf(item))->setEnabled(false);
}

void MenuBarOverflow::addClick(QToolButton& item) {
  QAction* const action = m_menu->addAction(item.icon(), textOf(item));
  action->setCheckable(item.isCheckable());
  action->setChecked(item.isChecked());
  action->setEnabled(item.isEnabled());
  connect(action, &QAction::triggered, &item, &QToolButton::click);
}

void MenuBarOverflow::activate(QToolButton* item) const {
  if (const QMenu* const menu = m_menus->menuOf(item))
    m_menu->setActiveAction(menu->menuAction());
}

} // namespace Vela::UiBase
