// SPDX-License-Identifier: MIT
#include "tool_bar.h"
#include "tool_bar_content.h"
#include "tool_bar_menu_watch.h"
#include "tool_bar_p.h"
#include "tool_bar_placer.h"

#include <algorithm>
#include <utility>

namespace Vela::UiBase {

// --- place

ToolBarPlace ToolBar::Place() const {
  d->placer->noteMove();
  return d->placer->place();
}

void ToolBar::SetAutoPositionInterval(int milliseconds) { d->autoPositionTimer->setInterval(milliseconds); }

void ToolBar::SetPos(const QPoint& position) {
  d->params.autoPosition = false;
  d->autoPositionTimer->stop();
  d->placer->pin(position);
}

void ToolBar::AdjustToolBarSize(bool reposition) {
  d->sizeOutOfDate = !isVisible(); // what is put in meanwhile can be measured once it shows
  if (d->placer->isLaidOut()) {
    updateGeometry();
    return;
  }
  const QPointer<ToolBar> self(this);
  resize(d->limited(sizeHint()));
  if (self)
    d->fitContent();
  if (self && reposition)
    OnAutoPosition();
}

QSize ToolBar::sizeHint() const { return d->sizeFor(d->content->neededSize()); }

QSize ToolBar::minimumSizeHint() const {
  const QSize whole = sizeHint();
  const QSize least = whole.boundedTo({64, 64});
  return Orientation() == Qt::Horizontal ? QSize(least.width(), whole.height())
                                         : QSize(whole.width(), least.height());
}

void ToolBar::OnAutoPosition() {
  if (!d->placer->isAutomatic())
    return;
  const QPointer<ToolBar> self(this);
  resize(d->limited(sizeHint()));
  if (self)
    d->placer->placeAtEdge();
}

void ToolBar::AutoPosition() {
  if (parentWidget())
    move(d->placer->place().atEdge(d->params.centered, layoutDirection()));
}

// --- showing

void ToolBar::ShowMe() {
  const QPointer<ToolBar> self(this);
  d->hiddenByRequest = false;
  d->inShowMode = true;
  d->placer->comeIn();
  if (self)
    AdjustToolBarSize(true);
  if (self)
    show();
}

void ToolBar::HideMe(bool byRequest) {
  const QPointer<ToolBar> self(this);
  d->hiddenByRequest = byRequest;
  d->inShowMode = false;
  const QList<ToolButtonWithMenu*> menus = MenuButtons(true);
  const QList<QPointer<ToolButtonWithMenu>> buttons(menus.cbegin(), menus.cend());
  for (const QPointer<ToolButtonWithMenu>& button : buttons) {
    if (button)
      button->HideMenu();
  }
  if (self)
    hide();
}

bool ToolBar::HiddenByRequest() const { return d->hiddenByRequest; }

void ToolBar::ShowAnimated() {
  const QPointer<ToolBar> self(this);
  d->hiddenByRequest = false;
  d->inShowMode = true;
  AdjustToolBarSize(false);
  if (self && !isVisible()) {
    d->placer->placeAtEdge();
    if (self)
      d->placer->goOut();
    if (self)
      QWidget::setVisible(true); // and it stays out
  }
  if (self)
    d->setLock(d->placer.get(), false);
  if (self && d->inShowMode)
    d->placer->slide(true);
}

void ToolBar::HideAnimated() {
  const QPointer<ToolBar> self(this);
  d->inShowMode = false;
  HideAllButtonMenusExcept(false, nullptr);
  if (self && !d->inShowMode)
    d->setLock(d->placer.get(), true);
  if (self && !d->inShowMode)
    d->placer->slide(false);
}

void ToolBar::setVisible(bool visible) {
  const QPointer<ToolBar> self(this);
  if (!visible)
    d->placer->stop();
  else if (!d->placer->isSlidingIn())
    d->placer->comeIn();
  if (self)
    QWidget::setVisible(visible);
  if (self)
    d->setLock(d->placer.get(), false);
}

bool ToolBar::InShowMode() {
  if (d->inShowMode && !isVisible())
    d->inShowMode = false;
  return d->inShowMode;
}

void ToolBar::SetAnimationDuration(int milliseconds) { d->placer->setDuration(std::max(0, milliseconds)); }

void ToolBar::OnShowAnimationDone() {
  const QPointer<ToolBar> self(this);
  d->placer->comeIn();
  if (self)
    OnAutoPosition(); // the parent may have got another size meanwhile
}

void ToolBar::OnHideAnimationDone() { hide(); }

void ToolBar::SetLocked(bool locked) { d->setLock(this, locked); }

bool ToolBar::IsLocked() const { return !d->lockHolders.isEmpty(); }

// --- clicks and menus

void ToolBar::OnToolButtonClicked() {
  const QPointer<ToolButton> button = qobject_cast<ToolButton*>(sender());
  const QPointer<ToolBar> self(this);
  if (!button)
    return;
  d->OnButtonClickCheckExclusiveGroups(*button);
  if (self && button)
    Q_EMIT ToolButtonClicked(button);
  if (!self || !button)
    return;
  ToolButtonWithWidgetMenu* const active = GetActiveButton();
  if (active && active != button && active->ExtendController() != button)
    active->HideMenu();
  if (self && button)
    d->hideMenusExcept(false, button, true);
  if (!self || !button || !d->params.hideOnClick || qobject_cast<ToolButtonWithButtonMenu*>(button))
    return;
  const auto* const opener = qobject_cast<ToolButtonWithMenu*>(button);
  if (d->ownerButton)
    d->ownerButton->HideMenu();
  else if (!opener || !opener->GetMenu())
    HideMe(false);
}

void ToolBar::HideAllButtonMenusExcept(bool saveState, ToolButton* except) {
  d->hideMenusExcept(saveState, except, false);
}

void ToolBarPrivate::hideMenusExcept(bool saveState, const ToolButton* except, bool onClick) {
  const QList<ToolButtonWithMenu*> menus = toolBar->MenuButtons(toolBar->GetBaseToolBar() == toolBar);
  QList<QPointer<ToolButtonWithMenu>> others;
  for (ToolButtonWithMenu* const button : menus) {
    const auto* const hosting = qobject_cast<ToolButtonWithWidgetMenu*>(button);
    const bool controlled = hosting && except && hosting->ExtendController() == except;
    const bool stays = onClick && button->NoHideMenuOnClick();
    if (button != except && !controlled && !stays)
      others.append(button);
  }
  for (const QPointer<ToolButtonWithMenu>& button : std::as_const(others)) {
    if (!button)
      continue;
    button->SetSaveMenuState(saveState);
    button->HideMenu();
  }
}

void ToolBar::OnMouseClickedOutside() {
  const QPointer<ToolBar> self(this);
  const QList<ToolButtonWithMenu*> menus = MenuButtons(false);
  const QList<QPointer<ToolButtonWithMenu>> buttons(menus.cbegin(), menus.cend());
  for (const QPointer<ToolButtonWithMenu>& button : buttons) {
    const auto* const menu = button ? qobject_cast<ToolBar*>(button->GetMenu()) : nullptr;
    const bool stays = menu && menu->KeepStateOnClickOutside();
    if (self && button && !stays && !(d->menuWatch && d->menuWatch->spares(*button)))
      button->HideMenu();
  }
}

bool ToolBar::DismissLeafMenu() {
  if (ToolButtonWithWidgetMenu* const active = GetActiveButton(); active && active->IsMenuShowing()) {
    d->dismiss(*active);
    return true;
  }
  return GetBaseToolBar()->d->dismissLeaf();
}

void ToolBar::OnDismissWidgetMenu(ToolButtonWithButtonMenu*, ToolButtonWithWidgetMenu* widgetMenu) {
  if (widgetMenu)
    widgetMenu->HideMenu();
}

void ToolBar::OnResizeTimerTimeOut() {
  const QList<ToolButtonWithMenu*> menus = MenuButtons(true);
  const QList<QPointer<ToolButtonWithMenu>> buttons(menus.cbegin(), menus.cend());
  for (const QPointer<ToolButtonWithMenu>& button : buttons) {
    if (button && button->IsMenuShowing())
      button->ShowMenu();
  }
}

} // namespace Vela::UiBase
