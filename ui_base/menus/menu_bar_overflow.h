// SPDX-License-Identifier: MIT
#pragma once

#include <QMenu>
#include <QObject>
#include <QPointer>

class QToolButton;

namespace Vela::UiBase {

class MenuBarMenus;
class MenuBarWidget;

/// The menu of a bar's overflow button: the items that the bar has no room for, with their menus as
/// sub-menus. Filled each time it opens. Owned by the bar.
class MenuBarOverflow : public QObject {
public:
  MenuBarOverflow(MenuBarWidget* bar, MenuBarMenus* menus);

  QMenu* menu() const { return m_menu; }
  /// The entry that stands for an item, once the menu is open; null when there is none.
  void activate(QToolButton* item) const;

private:
  void fill();
  void addItem(QToolButton& item);
  void addClick(QToolButton& item);

  MenuBarWidget* const m_bar;
  MenuBarMenus* const m_menus;
  const QPointer<QMenu> m_menu;
};

} // namespace Vela::UiBase
