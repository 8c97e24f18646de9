// SPDX-License-Identifier: MIT
#include "rc_menu_manager_p.h"

#include "menu_contents.h"

#include <QCoreApplication>
#include <QCursor>
#include <QKeyEvent>
#include <QPushButton>
#include <QTimer>

#include <algorithm>

namespace Vela::UiBase {

namespace {

QByteArray nameOf(const QString& property) { return property.toLatin1(); }

QVariant styleOf(const QAbstractButton& button, const QString& property) {
  return button.property(nameOf(property));
}

/// Also a mouse event that was made of a touch.
RCMenuInput inputOf(const QMouseEvent& event) {
  const bool touch = event.source() != Qt::MouseEventNotSynthesized ||
                     event.device()->type() == QInputDevice::DeviceType::TouchScreen;
  return touch ? RCMenuInput::Touch : RCMenuInput::Mouse;
}

QPoint positionFor(const QAbstractButton& button, const QSize& menu, int gap) {
  const QPoint below = button.mapToGlobal(QPoint(0, button.height() + gap));
  return menuInSight(button, below, menu, {0, gap});
}

bool isOpeningKey(int key) {
  return key == Qt::Key_Space || key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Down;
}

} // namespace

RCMenuManagerPrivate::RCMenuManagerPrivate() = default;

RCMenuManagerPrivate::~RCMenuManagerPrivate() = default;

RCMenuLink* RCMenuManagerPrivate::linkOf(const QObject* buttonOrMenu) {
  const auto found = std::find_if(links.begin(), links.end(), [&](const RCMenuLink& each) {
    return buttonOrMenu && (each.button.remains() == buttonOrMenu || each.menu.remains() == buttonOrMenu);
  });
  return found == links.end() ? nullptr : &*found;
}

RCMenuLink* RCMenuManagerPrivate::linkOf(const RCMenuLink& copy) {
  RCMenuLink* const ofButton = linkOf(copy.button);
  return ofButton ? ofButton : linkOf(copy.menu);
}

void RCMenuManagerPrivate::forget(const QObject* buttonOrMenu) {
  if (const RCMenuLink* const found = linkOf(buttonOrMenu)) {
    RCMenuLink old = *found;
    std::erase_if(links, [&](const RCMenuLink& each) { return &each == found; });
    if (old.menu)
      QObject::disconnect(old.menu, nullptr, q, nullptr);
    if (old.button)
      QObject::disconnect(old.button, nullptr, q, nullptr);
    unlink(old);
  }
}

void RCMenuManagerPrivate::watchEnds(QAbstractButton* button, QMenu* menu) {
  // The menu of a button that dies is free for other uses again.
  QObject::connect(button, &QObject::destroyed, q, [this](QObject* dead) { forget(dead); });
  QObject::connect(menu, &QObject::destroyed, q, [this](QObject* dead) {
    if (RCMenuLink* const pair = linkOf(dead))
      becomeClosed(*pair);
  });
}

void RCMenuManagerPrivate::link(RCMenuLink& pair) {
  if (!pair.isAlive() || pair.linked)
    return;
  pair.linked = true;
  if (auto* const toolButton = qobject_cast<QToolButton*>(pair.button)) {
    pair.popupMode = toolButton->popupMode();
    toolButton->setPopupMode(QToolButton::InstantPopup);
    toolButton->setMenu(pair.menu);
  } else if (auto* const pushButton = qobject_cast<QPushButton*>(pair.button)) {
    pushButton->setMenu(pair.menu);
  }
  pair.button->installEventFilter(q);
  pair.menu->installEventFilter(q);
}

void RCMenuManagerPrivate::unlink(RCMenuLink& pair) {
  if (!pair.linked)
    return;
  becomeClosed(pair);
  pair.linked = false;
  if (pair.button)
    pair.button->removeEventFilter(q);
  if (auto* const toolButton = qobject_cast<QToolButton*>(pair.button)) {
    toolButton->setMenu(nullptr);
    toolButton->setPopupMode(pair.popupMode);
  } else if (auto* const pushButton = qobject_cast<QPushButton*>(pair.button)) {
    pushButton->setMenu(nullptr);
  }
  if (!pair.menu)
    return;
  pair.menu->removeEventFilter(q);
  pair.menu->setEnabled(true);
  pair.menu->close(); // last: who hears of it may change the links or end the manager
}

RCMenuLink* RCMenuManagerPrivate::openable(const QAbstractButton* button) {
  RCMenuLink* const pair = linkOf(button);
  const bool canOpen = pair && pair->isAlive() && pair->linked && !pair->open;
  return canOpen && button->isVisible() && button->isEnabled() ? pair : nullptr;
}

void RCMenuManagerPrivate::open(QAbstractButton* button, RCMenuInput input) {
  if (!openable(button))
    return;
  // Who hears of a menu that closes or opens may end the button, its menu, the link or the manager.
  const QPointer<RCMenuManager> self = q;
  const LivePointer<QAbstractButton> guard = button;
  closeAll();
  RCMenuLink* const pair = self ? openable(guard) : nullptr;
  if (!pair)
    return;
  pair->input = input;
  pair->pointer = QCursor::pos();
  becomeOpen(*pair);
  QMenu* const menu = pair->menu;
  const auto isStillOpen = [this, &self, &guard] {
    const RCMenuLink* const now = self ? linkOf(guard) : nullptr;
    return now && now->open;
  };
  QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
  if (!isStillOpen())
    return;
  // A menu is a window: its position is global.
  menu->popup(positionFor(*button, menu->sizeHint(), menuGap));
  if (!isStillOpen())
    return;
  // Entries that came just now change the size, and so the place.
  menu->move(positionFor(*button, menu->size(), menuGap));
  if (input == RCMenuInput::Keyboard)
    activateFirstEntry(*menu);
  startTimer();
}

void RCMenuManagerPrivate::becomeOpen(RCMenuLink& pair) {
  pair.open = true;
  pair.menu->setEnabled(true);
  showAlternateStyle(pair);
  pair.button->setDown(true);
}

void RCMenuManagerPrivate::becomeClosed(RCMenuLink& pair) {
  if (!pair.open)
    return;
  pair.open = false;
  if (pair.menu)
    pair.menu->setEnabled(false);
  if (pair.button) {
    pair.button->setDown(false);
    showOriginalStyle(pair);
  }
  if (hideTimer)
    hideTimer->stop();
}

void RCMenuManagerPrivate::showAlternateStyle(RCMenuLink& pair) {
  QAbstractButton& button = *pair.button;
  const QByteArray original = nameOf(RCMenuManager::BUTTON_ORIGINAL_STYLE);
  // The application has given it another style since, in another theme perhaps.
  if (button.property(original).toString() == pair.linkedStyle) {
    pair.linkedStyle = button.styleSheet();
    button.setProperty(original, pair.linkedStyle);
  }
  const QVariant alternate = styleOf(button, RCMenuManager::BUTTON_ALTERNATE_STYLE);
  if (alternate.isValid())
    button.setStyleSheet(alternate.toString());
  pair.shownStyle = button.styleSheet();
}

void RCMenuManagerPrivate::showOriginalStyle(RCMenuLink& pair) {
  QAbstractButton& button = *pair.button;
  if (button.property(nameOf(RCMenuManager::BUTTON_ORIGINAL_STYLE)).toString() == pair.linkedStyle &&
      button.styleSheet() != pair.shownStyle)
    return; // it was given another one while the menu was open
  if (styleOf(button, RCMenuManager::BUTTON_ALTERNATE_STYLE).isValid())
    button.setStyleSheet(styleOf(button, RCMenuManager::BUTTON_ORIGINAL_STYLE).toString());
}

void RCMenuManagerPrivate::closeAll() {
  const QPointer<RCMenuManager> self = q;
  for (const RCMenuLink& pair : std::list<RCMenuLink>(links)) {
    if (self && pair.open)
      q->CloseMenu(pair.button);
  }
}

void RCMenuManagerPrivate::keepOpen() {
  if (hideTimer)
    hideTimer->stop();
}

void RCMenuManagerPrivate::startTimer() {
  if (hideTimer)
    hideTimer->start(hideInterval);
}

bool RCMenuManagerPrivate::filterButtonKey(RCMenuLink& pair, const QKeyEvent& event) {
  if (!isOpeningKey(event.key()) || event.isAutoRepeat())
    return false;
  open(pair.button, RCMenuInput::Keyboard);
  return true;
}

bool RCMenuManagerPrivate::filterButton(RCMenuLink& pair, QEvent& event) {
  switch (event.type()) {
  case QEvent::Enter:
  case QEvent::MouseMove:
    keepOpen();
    return false;
  case QEvent::Leave:
    if (pair.open)
      startTimer();
    return false;
  case QEvent::MouseButtonPress:
  case QEvent::MouseButtonDblClick:
    // The button's own handling would wait inside the press until the menu closes.
    if (static_cast<QMouseEvent&>(event).button() != Qt::LeftButton || !pair.button->isEnabled())
      return false;
    pair.button->setDown(true);
    return true;
  case QEvent::MouseButtonRelease: {
    const auto& mouse = static_cast<QMouseEvent&>(event);
    if (mouse.button() != Qt::LeftButton)
      return false;
    pair.button->setDown(false);
    if (pair.button->rect().contains(mouse.position().toPoint()))
      open(pair.button, inputOf(mouse));
    return true;
  }
  case QEvent::KeyPress:
    return filterButtonKey(pair, static_cast<QKeyEvent&>(event));
  case QEvent::Shortcut:
    open(pair.button, RCMenuInput::Keyboard);
    return true;
  case QEvent::EnabledChange:
    if (!pair.button->isEnabled())
      q->CloseMenu(pair.button);
    return false;
  case QEvent::Hide:
    q->CloseMenu(pair.button);
    return false;
  default:
    return false;
  }
}

bool RCMenuManagerPrivate::filterMenuPress(RCMenuLink& pair, const QMouseEvent& event) {
  // A press on the button closes its menu, and must not reach the button and open it again.
  const QPoint at = event.globalPosition().toPoint();
  const bool onButton = holdsPoint(*pair.button, at) && !menuHoldsPoint(*pair.menu, at);
  pair.menu->setAttribute(Qt::WA_NoMouseReplay, onButton);
  if (onButton)
    q->CloseMenu(pair.button);
  return onButton;
}

bool RCMenuManagerPrivate::filterMenu(RCMenuLink& pair, QEvent& event) {
  switch (event.type()) {
  case QEvent::Show:
    // Also when the button's own mechanism shows it, as assistive technologies make it do.
    if (!pair.open)
      becomeOpen(pair);
    return false;
  case QEvent::Hide:
    becomeClosed(pair);
    return false;
  case QEvent::Enter:
    keepOpen();
    return false;
  case QEvent::Leave:
    startTimer();
    return false;
  case QEvent::MouseMove: {
    // An open menu gets the movements over the whole screen, and some when the pointer rests.
    const auto& mouse = static_cast<QMouseEvent&>(event);
    const QPoint at = mouse.globalPosition().toPoint();
    if (inputOf(mouse) == RCMenuInput::Touch || (pair.input != RCMenuInput::Mouse && at == pair.pointer))
      return false;
    pair.input = RCMenuInput::Mouse;
    if (holdsPoint(*pair.button, at) || menuHoldsPoint(*pair.menu, at))
      keepOpen();
    else if (hideTimer && !hideTimer->isActive())
      startTimer();
    return false;
  }
  case QEvent::MouseButtonPress:
  case QEvent::MouseButtonDblClick:
    return filterMenuPress(pair, static_cast<QMouseEvent&>(event));
  case QEvent::KeyPress:
    pair.input = RCMenuInput::Keyboard;
    return false;
  default:
    return false;
  }
}

} // namespace Vela::UiBase
