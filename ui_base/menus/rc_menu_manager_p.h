// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/core/live_pointer.h>
#include <ui_base/menus/rc_menu_manager.h>

#include <QAbstractButton>
#include <QMainWindow>
#include <QMenu>
#include <QPointer>
#include <QString>
#include <QToolButton>

#include <list>

class QEvent;
class QKeyEvent;
class QMouseEvent;
class QTimer;

namespace Vela::UiBase {

/// What a menu was opened with, or worked with last.
enum class RCMenuInput : int { Mouse, Keyboard, Touch };

/// A button with its menu.
struct RCMenuLink {
  LivePointer<QAbstractButton> button = {};
  LivePointer<QMenu> menu = {};
  QToolButton::ToolButtonPopupMode popupMode = QToolButton::DelayedPopup; // before it was linked
  bool linked = false;
  bool open = false;
  RCMenuInput input = RCMenuInput::Mouse; // only a mouse that leaves closes the menu
  QPoint pointer = {};                    // where it was when the menu opened
  QString linkedStyle = {};               // the style sheet that linking took for the original one
  QString shownStyle = {};                // the style sheet that opening has set

  bool isAlive() const { return button && menu; }
};

/// The state of an RCMenuManager, for subclasses that add to it.
class UI_BASE_EXPORT RCMenuManagerPrivate {
public:
  RCMenuManagerPrivate();
  virtual ~RCMenuManagerPrivate();
  Q_DISABLE_COPY_MOVE(RCMenuManagerPrivate)

  RCMenuLink* linkOf(const QObject* buttonOrMenu);
  RCMenuLink* linkOf(const RCMenuLink& copy);
  RCMenuLink* openable(const QAbstractButton* button);
  void forget(const QObject* buttonOrMenu);
  void watchEnds(QAbstractButton* button, QMenu* menu);
  void link(RCMenuLink& pair);
  void unlink(RCMenuLink& pair);
  void open(QAbstractButton* button, RCMenuInput input);
  void becomeOpen(RCMenuLink& pair);
  void becomeClosed(RCMenuLink& pair);
  void showAlternateStyle(RCMenuLink& pair);
  void showOriginalStyle(RCMenuLink& pair);
  void closeAll();
  bool filterButton(RCMenuLink& pair, QEvent& event);
  bool filterButtonKey(RCMenuLink& pair, const QKeyEvent& event);
  bool filterMenu(RCMenuLink& pair, QEvent& event);
  bool filterMenuPress(RCMenuLink& pair, const QMouseEvent& event);
  void keepOpen();
  void startTimer();

  RCMenuManager* q = nullptr;
  LivePointer<QMainWindow> mainWindow;
  int menuGap = 0;
  bool autoHide = false;
  QTimer* hideTimer = nullptr;
  int hideInterval = 500;      // ms
  std::list<RCMenuLink> links; // in the order they were added
  bool started = false;
};

} // namespace Vela::UiBase
