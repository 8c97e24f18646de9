// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/core/live_pointer.h>

#include <QHash>
#include <QMenu>
#include <QObject>
#include <QPoint>
#include <QTimer>
#include <QToolButton>

class QKeyEvent;
class QMouseEvent;

namespace Vela::UiBase {

class MenuBarOverflow;
class MenuBarWidget;

/// Opens the drop-down menus of a menu bar under their buttons, moves along the bar while one is open, and
/// closes them. One menu is open at a time. Owned by the bar.
class MenuBarMenus : public QObject {
  Q_OBJECT

public:
  explicit MenuBarMenus(MenuBarWidget* bar);

  /// Gives the button this menu in place of another; null takes it away.
  void link(QToolButton* item, QMenu* menu);
  QMenu* menuOf(const QToolButton* item) const;
  QMenu* overflowMenu() const;

  /// The item whose menu is open; null when none is.
  QToolButton* openItem() const { return m_openItem; }
  /// Opens the menu of an item that can be used, in place of another; otherwise does nothing. That of an item
  /// the bar has no room for opens beside the menu of the overflow button.
  void open(QToolButton* item, bool byKeyboard);
  /// @param keepsBar whether the keyboard stays in the bar.
  void close(bool keepsBar = false);
  /// Closes for good, because the bar goes: who hears of it finds no bar any more.
  void end();

  /// How far a menu's corner is from the corner of its button below which it opens, in pixels.
  void setPosition(const QPoint& position) { m_position = position; }
  /// After how many milliseconds outside of menu and bar a menu closes that the pointer was in; negative for
  /// never.
  int closeDelay() const { return m_closeDelay; }
  void setCloseDelay(int milliseconds);

  /// What a filter on a drop-down menu or one of its sub-menus passes on. @return whether the event is used
  /// up.
  bool filterMenu(QMenu* menu, QEvent* event);
  /// For the filter on an item.
  bool filterItem(QToolButton* item, QEvent* event);
  /// A menu does not stay behind when its window moves, to another screen for instance.
  bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
  void opened(QToolButton* item, bool byKeyboard);
  void closed(bool keepsBar);

private:
  QPoint positionFor(const QToolButton& item, const QSize& menu) const;
  bool opensOnPress(const QToolButton& item, const QPoint& position) const;
  void adopt(QMenu* menu);
  void menuHidden();
  bool filterMove(const QMouseEvent& event);
  bool filterPress(QMenu* menu, const QMouseEvent& event);
  bool filterKey(QMenu* menu, const QKeyEvent& event);
  void step(int direction);
  void closeWhenOutside();

  MenuBarWidget* const m_bar;
  MenuBarOverflow* const m_overflow; // the bar's
  QHash<const QToolButton*, LivePointer<QMenu>> m_menus;
  LivePointer<QToolButton> m_openItem;
  LivePointer<QMenu> m_opening; // which Qt is in the middle of showing
  QPoint m_position;
  QPoint m_barPlace; // on the desktop, when the menu opened
  QPoint m_pointer;  // where it was last
  QTimer m_closeTimer;
  int m_closeDelay = 1000;
  bool m_switches = false;
  bool m_keepsBar = false;
  bool m_pointerWasInside = false;
};

} // namespace Vela::UiBase
