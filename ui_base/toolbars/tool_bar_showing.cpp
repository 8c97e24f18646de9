// SPDX-License-Identifier: MIT
#include "tool_bar.h"
#include "tool_bar_p.h"

#include <algorithm>
#include <utility>

namespace Vela::UiBase {

// --- place

void ToolBar::SetEnableAutoPosition(bool enable) {
  d->params.autoPosition = enable;
  if (enable)
    d->autoPositionTimer->start();
}

void ToolBar::SetAutoPositionInterval(int milliseconds) { d->autoPositionTimer->setInterval(milliseconds); }

void ToolBar::SetCentered(bool centered) {
  d->params.centered = centered;
  OnAutoPosition();
}

void ToolBar::SetOffset(const QPoint& offset) {
  d->params.offset = offset;
  OnAutoPosition();
}

void ToolBar::SetPos(const QPoint& position) {
  d->params.autoPosition = false;
  d->autoPositionTimer->stop();
  move(position);
}

void ToolBar::AdjustToolBarSize(bool reposition) {
  d->sizeOutOfDate = false;
  if (d->isLaidOutByParent()) {
    updateGeometry();
    return;
  }
  resize(d->limited(sizeHint()));
  d->fitContent();
  if (reposition)
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
  const bool slides = d->animation && d->animation->state() == QAbstractAnimation::Running;
  if (!d->isPlacedAutomatically() || slides)
    return;
  resize(d->limited(sizeHint()));
  AutoPosition();
}

void ToolBar::AutoPosition() {
  if (parentWidget())
    move(d->place().atEdge(d->params.centered, layoutDirection()));
}

// --- showing

void ToolBar::ShowMe() {
  d->stopAnimation();
  d->hiddenByRequest = false;
  SetLocked(false);
  d->inShowMode = true;
  AdjustToolBarSize(true);
  d->comeBackIn();
  show();
}

void ToolBar::HideMe(bool byRequest) {
  const QPointer<ToolBar> self(this);
  d->hiddenByRequest = byRequest;
  const bool slidOut = d->animation && !d->inShowMode;
  d->stopAnimation();
  d->inShowMode = false;
  const QList<ToolButtonWithMenu*> menus = MenuButtons(true);
  const QList<QPointer<ToolButtonWithMenu>> buttons(menus.cbegin(), menus.cend());
  for (const QPointer<ToolButtonWithMenu>& button : buttons) {
    if (button)
      button->HideMenu();
  }
  if (!self)
    return;
  hide();
  if (slidOut)
    OnHideAnimationDone(); // which the slide has not come to
}

bool ToolBar::HiddenByRequest() const { return d->hiddenByRequest; }

void ToolBar::ShowAnimated() {
  d->stopAnimation();
  d->hiddenByRequest = false;
  AdjustToolBarSize(false);
  if (!isVisible()) {
    AutoPosition();
    move(d->place().offScreen());
    show();
  }
  SetLocked(false);
  d->inShowMode = true;
  d->InitializePosAnimation(true, pos(), d->place().onScreen());
}

void ToolBar::HideAnimated() {
  d->stopAnimation();
  const QPointer<ToolBar> self(this);
  HideAllButtonMenusExcept(false, nullptr);
  if (!self)
    return;
  SetLocked(true);
  d->inShowMode = false;
  d->InitializePosAnimation(false, pos(), d->place().offScreen());
}

bool ToolBar::InShowMode() {
  if (d->inShowMode && !isVisible())
    d->inShowMode = false;
  return d->inShowMode;
}

void ToolBar::SetAnimationDuration(int milliseconds) { d->animationDuration = std::max(0, milliseconds); }

// The parent may have got another size meanwhile.
void ToolBar::OnShowAnimationDone() {
  d->animation.clear();
  OnAutoPosition();
}

void ToolBar::OnHideAnimationDone() {
  d->animation.clear();
  hide();
  SetLocked(false);
}

void ToolBar::SetLocked(bool locked) {
  d->locked = locked;
  setEnabled(!locked);
}

bool ToolBar::IsLocked() const { return d->locked; }

void ToolBar::SetHideOnClick(bool hide) { d->params.hideOnClick = hide; }

void ToolBar::SetKeepStateOnClickOutside(bool keep) { d->params.keepStateOnClickOutside = keep; }

// --- clicks and menus

void ToolBar::OnToolButtonClicked() {
  const QPointer<ToolButton> button = qobject_cast<ToolButton*>(sender());
  const QPointer<ToolBar> self(this);
  if (!button)
    return;
  d->OnButtonClickCheckExclusiveGroups(*button);
  Q_EMIT ToolButtonClicked(button);
  if (!self || !button)
    return;
  ToolButtonWithWidgetMenu* const active = GetActiveButton();
  if (active && active != button && active->ExtendController() != button)
    active->HideMenu();
  if (self && button)
    HideAllButtonMenusExcept(false, button);
  if (!self || !button || !d->params.hideOnClick || qobject_cast<ToolButtonWithButtonMenu*>(button))
    return;
  const auto* const opener = qobject_cast<ToolButtonWithMenu*>(button);
  if (d->ownerButton)
    d->ownerButton->HideMenu();
  else if (!opener || !opener->GetMenu())
    HideMe(false);
}

void ToolBar::HideAllButtonMenusExcept(bool saveState, ToolButton* except) {
  const QList<ToolButtonWithMenu*> menus = MenuButtons(GetBaseToolBar() == this);
  QList<QPointer<ToolButtonWithMenu>> others;
  for (ToolButtonWithMenu* const button : menus) {
    const auto* const hosting = qobject_cast<ToolButtonWithWidgetMenu*>(button);
    const bool controlled = hosting && except && hosting->ExtendController() == except;
    if (button != except && !controlled)
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
  const QList<ToolButtonWithMenu*> menus = MenuButtons(false);
  const QList<QPointer<ToolButtonWithMenu>> buttons(menus.cbegin(), menus.cend());
  for (const QPointer<ToolButtonWithMenu>& button : buttons) {
    const auto* const menu = button ? qobject_cast<ToolBar*>(button->GetMenu()) : nullptr;
    if (button && !(menu && menu->KeepStateOnClickOutside()))
      button->HideMenu();
  }
}

bool ToolBar::DismissLeafMenu() {
  if (ToolButtonWithWidgetMenu* const active = GetActiveButton(); active && active->IsMenuShowing()) {
    OnDismissWidgetMenu(qobject_cast<ToolButtonWithButtonMenu*>(active->ExtendController()), active);
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
