// SPDX-License-Identifier: MIT
#include "tool_bar_p.h"

#include "tool_bar_content.h"
#include "tool_bar_keys.h"
#include "tool_bar_menu_watch.h"
#include "tool_bar_overflow.h"
#include "tool_bar_paths.h"
#include "tool_bar_placer.h"

#include <QApplication>
#include <QState>
#include <QStateMachine>

#include <algorithm>
#include <utility>

namespace Vela::UiBase {

namespace {

constexpr int menuFollowTime = 100; // ms

} // namespace

ToolBarPrivate::ToolBarPrivate()
    : keys(std::make_unique<ToolBarKeys>()), paths(std::make_unique<ToolBarPaths>()) {}

ToolBarPrivate::~ToolBarPrivate() = default;

void ToolBarPrivate::InitializeResizeTimer() {
  resizeTimer = new QTimer(toolBar);
  resizeTimer->setSingleShot(true);
  resizeTimer->setInterval(menuFollowTime);
  QObject::connect(resizeTimer, &QTimer::timeout, toolBar, &ToolBar::OnResizeTimerTimeOut);
}

void ToolBarPrivate::InitializeStateMachine() {
  stateMachine = new QStateMachine(toolBar);
  auto* const initial = new QState;
  stateMachine->addState(initial);
  stateMachine->setInitialState(initial);
  stateMachine->start();
}

// --- showing and menus

void ToolBarPrivate::onMenuVisibilityChange(bool visible) {
  const QList<ToolButtonWithMenu*> menus = toolBar->MenuButtons(true);
  const bool open = visible || std::any_of(menus.cbegin(), menus.cend(), [](const ToolButtonWithMenu* other) {
                      return other->IsMenuShowing();
                    });
  if (open && !menuWatch)
    menuWatch = new ToolBarMenuWatch(*toolBar);
  if (menuWatch)
    menuWatch->setWatching(open);
}

// Of two flyouts that come to be open in one nest the one that was there closes.
void ToolBarPrivate::changeNest(ToolButtonWithMenu* owner) {
  ToolBarPrivate& before = of(*toolBar->GetBaseToolBar());
  ToolButtonWithWidgetMenu* const active = before.activeButton;
  const ToolBar* outer = active ? active->OwningToolBar() : nullptr;
  while (outer && outer != toolBar)
    outer = outer->OwnerButton() ? outer->OwnerButton()->OwningToolBar() : nullptr;
  ownerButton = owner;
  ToolBarPrivate& now = of(*toolBar->GetBaseToolBar());
  if (!outer || &now == &before)
    return;
  before.activeButton.clear();
  ToolButtonWithWidgetMenu* const other = std::exchange(now.activeButton, active);
  if (other && other != active)
    other->HideMenu();
}

void ToolBarPrivate::panelCame(const ToolButtonWithMenu&) {}

bool ToolBarPrivate::dismissLeaf() {
  const QList<ToolButtonWithMenu*> menus = toolBar->MenuButtons(false);
  for (ToolButtonWithMenu* const button : menus) {
    if (auto* const menu = qobject_cast<ToolBar*>(button->GetMenu()); menu && of(*menu).dismissLeaf())
      return true;
    if (!button->IsMenuShowing())
      continue;
    if (auto* const hosting = qobject_cast<ToolButtonWithWidgetMenu*>(button))
      dismiss(*hosting);
    else
      button->HideMenu();
    return true;
  }
  return false;
}

// What it does is for the whole nest to say.
void ToolBarPrivate::dismiss(ToolButtonWithWidgetMenu& button) const {
  toolBar->GetBaseToolBar()->OnDismissWidgetMenu(
      qobject_cast<ToolButtonWithButtonMenu*>(button.ExtendController()), &button);
}

void ToolBarPrivate::setLock(const void* holder, bool locked) {
  const bool before = toolBar->IsLocked();
  if (locked)
    lockHolders.insert(holder);
  else
    lockHolders.remove(holder);
  if (before == toolBar->IsLocked())
    return;
  const QPointer<ToolBar> self(toolBar);
  if (!before)
    giveFocusBack();
  if (self)
    content->setEnabled(!toolBar->IsLocked());
  if (self && overflow)
    overflow->setEnabled(!toolBar->IsLocked());
}

// Before the focus goes to whatever comes next.
void ToolBarPrivate::giveFocusBack() {
  const QWidget* const focus = QApplication::focusWidget();
  if (!focus || !toolBar->isAncestorOf(focus))
    return;
  if (ownerButton && ownerButton->isVisible())
    ownerButton->setFocus(Qt::OtherFocusReason);
  else
    ToolBarFocusCycle::of(*toolBar->window()).giveFocusBack();
}

} // namespace Vela::UiBase
