// SPDX-License-Identifier: MIT
#pragma once

#include "rc_menu_manager.h"

#include <ui_base/core/live_pointer.h>

#include <QAbstractButton>
#include <QMainWindow>
#include <QMenu>
#include <QPointer>
#include <QToolButton>
#include <QVariant>

#include <list>

class QEvent;
class QKeyEvent;
class QMouseEvent;
class QTimer;

namespace Vela::UiBase {

/// The text of one of the dynamic properties of a button; invalid when it has none.
QVariant styleOf(const QAbstractButton& button, const QString& property);

/// A button with its menu.
struct RCMenuLink {
  LivePointer<QAbstractButton> button = {};
  LivePointer<QMenu> menu = {};
  QToolButton::ToolButtonPopupMode popupMode = QToolButton::DelayedPopup; // before it was linked
  bool linked = false;
  bool open = false;
  bool byKeyboard = false; // the last input while open
  QPoint pointer = {};     // where it was when the menu opened

  bool isAlive() const { return button && menu; }
};

class RCMenuManagerPrivate {
public:
  explicit RCMenuManagerPrivate(RCMenuManager* owner) : q(owner) {}

  RCMenuLink* linkOf(const QObject* buttonOrMenu);
  RCMenuLink* linkOf(const RCMenuLink& copy);
  RCMenuLink* openable(const QAbstractButton* button);
  void forget(const QObject* buttonOrMenu);
  void watchEnds(QAbstractButton* button, QMenu* menu);
  void link(RCMenuLink& pair);
  void unlink(RCMenuLink& pair);
  void open(QAbstractButton* button, bool byKeyboard);
  void becomeOpen(RCMenuLink& pair);
  void becomeClosed(RCMenuLink& pair);
  void closeAll();
  bool filterButton(RCMenuLink& pair, QEvent& event);
  bool filterButtonKey(RCMenuLink& pair, const QKeyEvent& event);
  bool filterMenu(RCMenuLink& pair, QEvent& event);
  bool filterMenuPress(RCMenuLink& pair, const QMouseEvent& event);
  void keepOpen();
  void startTimer();

  RCMenuManager* const q;
  LivePointer<QMainWindow> mainWindow;
  int menuGap = 0;
  bool autoHide = false;
  QTimer* hideTimer = nullptr;
  int hideInterval = 500;      // ms
  std::list<RCMenuLink> links; // in the order they were added
  bool started = false;
};

} // namespace Vela::UiBase
