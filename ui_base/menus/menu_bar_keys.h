// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/core/focus_keeper.h>

#include <QObject>
#include <QPointer>

class QKeyEvent;
class QToolButton;
class QWidget;

namespace Vela::UiBase {

class MenuBarMenus;
class MenuBarWidget;

/// The keyboard of a menu bar: Alt on its own and F10 enter and leave it, arrows, Home and End move along it,
/// Down and Up open the menu of an item, Space and Return use an item: one that has a click of its own is
/// clicked. A letter uses the item with that mnemonic, or moves along those that share it. Escape leaves. The
/// focus then returns to where it was. Owned by the bar.
class MenuBarKeys : public QObject {
  Q_OBJECT

public:
  MenuBarKeys(MenuBarWidget* bar, MenuBarMenus* menus, QWidget* window);
  ~MenuBarKeys() override;

  bool isActive() const { return m_active; }
  /// Gives the focus to an item; by default to the first that can be used.
  void enter(QToolButton* item = nullptr);
  void leave();

  /// For the filter on an item. @return whether the event is used up.
  bool filterItem(QToolButton* item, QEvent* event);
  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  void toggle();
  void moveTo(QToolButton* item);
  void use(QToolButton* item);
  bool filterKey(QToolButton* item, const QKeyEvent& event);
  void click(QToolButton* item);
  bool useMnemonic(QToolButton* current, int key);
  void watchAlt(const QKeyEvent& event);
  void followAlt(QEvent* event);
  void forgetAlt();

  MenuBarWidget* const m_bar;
  MenuBarMenus* const m_menus;
  QPointer<QWidget> m_window;
  FocusKeeper m_focus;
  bool m_active = false;
  bool m_altPressed = false;
};

} // namespace Vela::UiBase
