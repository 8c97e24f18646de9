// SPDX-License-Identifier: MIT
#include "rc_menu_manager.h"

#include "menu_contents.h"
#include "rc_menu_manager_p.h"

#include <QCursor>
#include <QEvent>
#include <QTimer>

#include <algorithm>

namespace Vela::UiBase {

const QString RCMenuManager::BUTTON_ORIGINAL_STYLE = QStringLiteral("OriginalStyle");
const QString RCMenuManager::BUTTON_ALTERNATE_STYLE = QStringLiteral("AlternateStyle");

RCMenuManager::RCMenuManager(QMainWindow* mainWindow, int menuGap, bool autoHide, QObject* parent)
    : RCMenuManager(*new RCMenuManagerPrivate, mainWindow, menuGap, autoHide, parent) {}

RCMenuManager::RCMenuManager(RCMenuManagerPrivate& state, QMainWindow* mainWindow, int menuGap, bool autoHide,
                             QObject* parent)
    : QObject(parent), d(&state) {
  d->q = this;
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
    connect(d->hideTimer, SIGNAL(timeout()), this, SLOT(OnMenuHideTimerTimeOut()));
  }
  if (d->mainWindow)
    d->mainWindow->installEventFilter(this);
}

void RCMenuManager::AddButtonMenuLinkage(QAbstractButton* button, QMenu* menu) {
  if (!button || !menu)
    return;
  const QPointer<RCMenuManager> self = this;
  const LivePointer<QAbstractButton> liveButton = button;
  const LivePointer<QMenu> liveMenu = menu;
  d->forget(button);
  if (self)
    d->forget(liveMenu);
  if (!self || !liveButton || !liveMenu)
    return;
  const QByteArray original = BUTTON_ORIGINAL_STYLE.toLatin1();
  if (!button->property(original).isValid())
    button->setProperty(original, button->styleSheet());
  d->watchEnds(button, menu);
  connect(menu, SIGNAL(triggered(QAction*)), this, SLOT(OnMenuActionTriggered()));
  menu->setWindowFlags(Qt::Popup | Qt::FramelessWindowHint | Qt::NoDropShadowWindowHint);
  d->links.push_back({.button = button, .menu = menu, .linkedStyle = button->styleSheet()});
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
  const QPointer<RCMenuManager> self = this;
  for (const RCMenuLink& each : std::list<RCMenuLink>(d->links)) {
    RCMenuLink* const pair = self ? d->linkOf(each) : nullptr;
    if (!pair)
      continue;
    if (link)
      d->link(*pair);
    else
      d->unlink(*pair);
  }
}

void RCMenuManager::OpenMenu(QAbstractButton* button) { d->open(button, RCMenuInput::Mouse); }

void RCMenuManager::CloseMenu(QAbstractButton* button) {
  if (RCMenuLink* const pair = d->linkOf(button)) {
    const LivePointer<QMenu> menu = pair->menu;
    d->becomeClosed(*pair); // also when it was not shown yet
    if (menu)
      menu->close(); // last: who hears of it may end the manager
  }
}

void RCMenuManager::OnMenuActionTriggered() {
  if (const RCMenuLink* const pair = d->linkOf(sender()))
    CloseMenu(pair->button);
}

void RCMenuManager::OnMenuHideTimerTimeOut() {
  const QPoint cursor = QCursor::pos();
  const QPointer<RCMenuManager> self = this;
  bool keepsOne = false;
  for (const RCMenuLink& pair : std::list<RCMenuLink>(d->links)) {
    if (!self)
      return;
    if (!pair.open || !pair.isAlive())
      continue;
    if (pair.input != RCMenuInput::Mouse || holdsPoint(*pair.button, cursor) ||
        menuHoldsPoint(*pair.menu, cursor))
      keepsOne = true;
    else
      CloseMenu(pair.button);
  }
  if (self && keepsOne)
    d->startTimer();
}

bool RCMenuManager::eventFilter(QObject* watched, QEvent* event) {
  if (watched == d->mainWindow.remains()) {
    const auto type = event->type();
    if (type == QEvent::Move || type == QEvent::Resize || type == QEvent::Hide ||
        type == QEvent::WindowStateChange)
      d->closeAll();
    return false;
  }
  RCMenuLink* const pair = d->linkOf(watched);
  if (!pair || !pair->isAlive())
    return false;
  return watched == pair->button ? d->filterButton(*pair, *event) : d->filterMenu(*pair, *event);
}

} // namespace Vela::UiBase
