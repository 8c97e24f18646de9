// SPDX-License-Identifier: MIT
#include "rc_menu_manager.h"

#include "menu_contents.h"
#include "rc_menu_manager_p.h"

#include <QAbstractButton>
#include <QCoreApplication>
#include <QCursor>
#include <QKeyEvent>
#include <QMainWindow>
#include <QMenu>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <QTimer>
#include <QToolButton>

#include <algorithm>

namespace Vela::UiBase {

const QString RCMenuManager::BUTTON_ORIGINAL_STYLE = QStringLiteral("OriginalStyle");
const QString RCMenuManager::BUTTON_ALTERNATE_STYLE = QStringLiteral("AlternateStyle");

namespace {

QVariant styleOf(const QAbstractButton& button, const QString& property) {
  return button.property(property.toLatin1().constData());
}

void wear(QAbstractButton& button, const QString& property) {
  if (styleOf(button, RCMenuManager::BUTTON_ALTERNATE_STYLE).isValid())
    button.setStyleSheet(styleOf(button, property).toString());
}

/// Below the button, or above it where the screen ends.
QPoint positionFor(const QAbstractButton& button, const QMenu& menu, int gap) {
  const QPoint below = button.mapToGlobal(QPoint(0, button.height() + gap));
  const QRect screen = button.screen()->availableGeometry();
  const int height = menu.sizeHint().height();
  const int above = button.mapToGlobal(QPoint()).y() - gap - height;
  return below.y() + height > screen.bottom() + 1 && above >= screen.top() ? QPoint(below.x(), above) : below;
}

bool isOpeningKey(int key) {
  return key == Qt::Key_Space || key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Down;
}

} // namespace

RCMenuLink* RCMenuManagerPrivate::linkOf(const QObject* buttonOrMenu) {
  const auto found = std::find_if(links.begin(), links.end(), [&](const RCMenuLink& each) {
    return buttonOrMenu && (each.button == buttonOrMenu || each.menu == buttonOrMenu);
  });
  return found == links.end() ? nullptr : &*found;
}

void RCMenuManagerPrivate::forget(const QObject* buttonOrMenu) {
  if (RCMenuLink* const old = linkOf(buttonOrMenu)) {
    unlink(*old);
    QObject::disconnect(old->menu, nullptr, q, nullptr);
    QObject::disconnect(old->button, nullptr, q, nullptr);
    std::erase_if(links, [&](const RCMenuLink& each) { return &each == old; });
  }
  std::erase_if(links, [](const RCMenuLink& each) { return !each.isAlive(); });
}

void RCMenuManagerPrivate::watchEnds(QAbstractButton* button, QMenu* menu) {
  // A widget still looks alive to a QPointer while it says that it is destroyed.
  const auto closeDead = [this](QObject* dead) {
    RCMenuLink* const pair = linkOf(dead);
    if (!pair)
      return;
    if (pair->button == dead)
      pair->button.clear();
    else
      pair->menu.clear();
    if (pair->menu)
      pair->menu->close();
    becomeClosed(*pair);
  };
  QObject::connect(button, &QObject::destroyed, q, closeDead);
  QObject::connect(menu, &QObject::destroyed, q, closeDead);
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
  if (pair.menu)
    pair.menu->close();
  becomeClosed(pair);
  pair.linked = false;
  if (pair.menu) {
    pair.menu->removeEventFilter(q);
    pair.menu->setEnabled(true);
  }
  if (!pair.button)
    return;
  pair.button->removeEventFilter(q);
  if (auto* const toolButton = qobject_cast<QToolButton*>(pair.button)) {
    toolButton->setMenu(nullptr);
    toolButton->setPopupMode(pair.popupMode);
  } else if (auto* const pushButton = qobject_cast<QPushButton*>(pair.button)) {
    pushButton->setMenu(nullptr);
  }
}

void RCMenuManagerPrivate::open(QAbstractButton* button, bool byKeyboard) {
  RCMenuLink* const pair = linkOf(button);
  if (!pair || !pair->linked || pair->open || !button->isVisible() || !button->isEnabled())
    return;
  closeAll();
  pair->byKeyboard = byKeyboard;
  pair->pointer = QCursor::pos();
  becomeOpen(*pair);
  const QPointer<QAbstractButton> guard = button;
  const QPointer<QMenu> menu = pair->menu;
  QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
  if (!guard || !menu)
    return;
  // A menu is a window: its position is global.
  menu->popup(positionFor(*button, *menu, menuGap));
  if (!menu)
    return;
  // Entries that came just now may have no room below.
  if (const QPoint place = positionFor(*button, *menu, menuGap);
      place.y() < button->mapToGlobal(QPoint()).y())
    menu->move(menu->x(), place.y());
  menu->raise();
  if (byKeyboard)
    menu->setActiveAction(firstEntry(*menu));
  startTimer();
}

void RCMenuManagerPrivate::becomeOpen(RCMenuLink& pair) {
  pair.open = true;
  pair.menu->setEnabled(true);
  wear(*pair.button, RCMenuManager::BUTTON_ALTERNATE_STYLE);
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
    wear(*pair.button, RCMenuManager::BUTTON_ORIGINAL_STYLE);
  }
  if (hideTimer)
    hideTimer->stop();
}

void RCMenuManagerPrivate::closeAll() {
  for (const RCMenuLink& pair : std::list<RCMenuLink>(links)) {
    if (pair.open)
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
  open(pair.button, true);
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
    if (static_cast<QMouseEvent&>(event).button() != Qt::LeftButton)
      return false;
    pair.button->setDown(true);
    return true;
  case QEvent::MouseButtonRelease: {
    const auto& mouse = static_cast<QMouseEvent&>(event);
    if (mouse.button() != Qt::LeftButton)
      return false;
    pair.button->setDown(false);
    if (pair.button->rect().contains(mouse.position().toPoint()))
      open(pair.button, false);
    return true;
  }
  case QEvent::KeyPress:
    return filterButtonKey(pair, static_cast<QKeyEvent&>(event));
  case QEvent::Shortcut:
    open(pair.button, true);
    return true;
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
    const QPoint at = static_cast<QMouseEvent&>(event).globalPosition().toPoint();
    if (pair.byKeyboard && at == pair.pointer)
      return false;
    pair.byKeyboard = false;
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
    pair.byKeyboard = true;
    return false;
  default:
    return false;
  }
}

RCMenuManager::RCMenuManager(QMainWindow* mainWindow, int menuGap, bool autoHide, QObject* parent)
    : QObject(parent), d(std::make_unique<RCMenuManagerPrivate>(this)) {
  d->mainWindow = mainWindow;
  d->menuGap = menuGap;
  d->autoHide = autoHide;
  Initialize();
}

RCMenuManager::~RCMenuManager() { Stop(); }

void RCMenuManager::Initialize() {
  if (d->autoHide) {
    d->hideTimer = new QTimer(this);
    d->hideTimer->setSingleShot(true);
    d->hideTimer->setInterval(d->hideInterval);
    connect(d->hideTimer, SIGNAL(timeout()), this, SLOT(OnMenuHideTimerTimeOut()));
  }
  if (d->mainWindow)
    d->mainWindow->installEventFilter(this);
}

void RCMenuManager::AddButtonMenuLinkage(QAbstractButton* button, QMenu* menu) {
  if (!button || !menu)
    return;
  d->forget(button);
  d->forget(menu);
  if (!styleOf(*button, BUTTON_ORIGINAL_STYLE).isValid())
    button->setProperty(BUTTON_ORIGINAL_STYLE.toLatin1().constData(), button->styleSheet());
  d->watchEnds(button, menu);
  connect(menu, SIGNAL(triggered(QAction*)), this, SLOT(OnMenuActionTriggered()));
  menu->setWindowFlags(Qt::Popup | Qt::FramelessWindowHint | Qt::NoDropShadowWindowHint);
  d->links.push_back({button, menu});
  if (d->started)
    d->link(d->links.back());
}

QAbstractButton* RCMenuManager::FindButton(const QString& text) const {
  for (const RCMenuLink& pair : d->links) {
    if (pair.isAlive() && pair.button->text() == text)
      return pair.button;
  }
  return nullptr;
}

QMenu* RCMenuManager::GetMenu(QAbstractButton* button) const {
  const RCMenuLink* const pair = d->linkOf(button);
  return pair ? pair->menu : nullptr;
}

int RCMenuManager::HideInterval() const { return d->hideInterval; }

void RCMenuManager::SetHideInterval(int milliseconds) {
  d->hideInterval = std::max(0, milliseconds);
  if (d->hideTimer)
    d->hideTimer->setInterval(d->hideInterval);
}

void RCMenuManager::Start() {
  d->started = true;
  LinkButtonMenu(true);
}

void RCMenuManager::Stop() {
  d->started = false;
  LinkButtonMenu(false);
}

bool RCMenuManager::IsStarted() const { return d->started; }

void RCMenuManager::LinkButtonMenu(bool link) {
  for (RCMenuLink& pair : d->links) {
    if (link)
      d->link(pair);
    else
      d->unlink(pair);
  }
}

void RCMenuManager::OpenMenu(QAbstractButton* button) { d->open(button, false); }

void RCMenuManager::CloseMenu(QAbstractButton* button) {
  const QPointer<QMenu> menu = GetMenu(button);
  if (menu)
    menu->close();
  if (RCMenuLink* const pair = d->linkOf(button))
    d->becomeClosed(*pair); // also when it was not shown yet
}

void RCMenuManager::OnMenuActionTriggered() {
  if (const RCMenuLink* const pair = d->linkOf(sender()))
    CloseMenu(pair->button);
}

void RCMenuManager::OnMenuHideTimerTimeOut() {
  const QPoint cursor = QCursor::pos();
  bool keepsOne = false;
  for (const RCMenuLink& pair : std::list<RCMenuLink>(d->links)) {
    if (!pair.open || !pair.isAlive())
      continue;
    if (pair.byKeyboard || holdsPoint(*pair.button, cursor) || menuHoldsPoint(*pair.menu, cursor))
      keepsOne = true;
    else
      CloseMenu(pair.button);
  }
  if (keepsOne)
    d->startTimer();
}

bool RCMenuManager::eventFilter(QObject* watched, QEvent* event) {
  if (watched == d->mainWindow) {
    const auto type = event->type();
    if (type == QEvent::Move || type == QEvent::Resize || type == QEvent::Hide ||
        type == QEvent::WindowStateChange)
      d->closeAll();
    return false;
  }
  RCMenuLink* const pair = d->linkOf(watched);
  if (!pair || !pair->linked || !pair->isAlive())
    return false;
  return watched == pair->button ? d->filterButton(*pair, *event) : d->filterMenu(*pair, *event);
}

} // namespace Vela::UiBase
