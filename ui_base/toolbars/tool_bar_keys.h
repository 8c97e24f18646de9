// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/core/focus_keeper.h>

#include <QAbstractButton>
#include <QList>
#include <QObject>
#include <QPointer>
#include <QRect>

class QKeyEvent;
class QWidget;

namespace Vela::UiBase {

class ToolBar;
class ToolButtonWithMenu;

/// Leads the focus from one bar of a window to the next with F6, to the one before with Shift+F6, and at the
/// end back to where it was: to the toolbars, the bars that were added, and last the menu bar. One for each
/// window with toolbars, owned by it.
class ToolBarFocusCycle : public QObject {
  Q_OBJECT

public:
  /// The one of the window, made when there is none.
  static ToolBarFocusCycle& of(QWidget& window);

  /// Has it lead to a bar that is no toolbar, in whatever window that stands.
  static void add(QWidget& bar);

  /// To where it was before it came to a bar, or nowhere.
  void giveFocusBack();

private:
  explicit ToolBarFocusCycle(QWidget& window);

  QWidgetList stops() const;
  void step(int direction);

  QWidget& m_window;
  FocusKeeper m_focus;
};

/// What the keys do in a toolbar: moving the focus along the buttons and into menus and back.
class ToolBarKeys {
public:
  void attach(ToolBar& toolBar) { m_toolBar = &toolBar; }

  /// Gives the focus to the button that had it last, or the first one. @return false when there is none.
  bool enter();
  /// @return whether the key was for the toolbar.
  bool press(QAbstractButton& button, const QKeyEvent& event);

private:
  QList<QAbstractButton*> stops() const;
  void move(QAbstractButton& button, int key);
  void openMenu(QAbstractButton& button, int key) const;
  void focus(QAbstractButton& button);
  void escape();

  ToolBar* m_toolBar = nullptr;
  QPointer<QAbstractButton> m_last;
};

/// The index of the rectangle that lies next to another one in the direction of an arrow key, or -1.
int nextInDirection(const QList<QRect>& rects, const QRect& from, int key);

} // namespace Vela::UiBase
