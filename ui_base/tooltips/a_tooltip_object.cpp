// SPDX-License-Identifier: MIT
#include "a_tooltip_object.h"

#include "a_tooltip_object_p.h"

#include <ui_base/popups/popup_sight.h>
#include <ui_base/popups/popup_window.h>
#include <ui_base/tooltips/default_tooltip.h>
#include <ui_base/tooltips/tooltip_look.h>
#include <ui_base/tooltips/tooltip_manager.h>
#include <ui_base/tooltips/tooltip_text.h>

#include <QEvent>

#include <utility>

namespace Vela::UiBase {

ATooltipObject::ATooltipObject(const QString& group, QObject* parent)
    : ATooltipObject(*new ATooltipObjectPrivate, group, parent) {}

ATooltipObject::ATooltipObject(ATooltipObjectPrivate& state, const QString& group, QObject* parent)
    : QObject(parent), d(&state) {
  d->object = this;
  d->group = group;
  TooltipManager::GetInstance().AddTooltip(this, group);
}

ATooltipObject::~ATooltipObject() {
  d->end();
  TooltipManager::GetInstance().RemoveTooltip(this);
  d->unlink();
}

// --- showing

void ATooltipObject::ShowTooltip() {
  if (d->ended || !d->ensureLayer())
    return;
  const QPointer<ATooltipObject> self(this);
  // The window that a widget happens to be in is not for a tooltip to show.
  if (!d->layerFound || d->layer != d->ownLayer())
    d->layer->show();
  if (!self || !d->layer)
    return;
  // Raising a window would bring it before others whenever the mouse rests in it.
  if (!d->layer->isWindow())
    d->layer->raise();
  if (!d->attachedControl && !d->ensureContent())
    return;
  if (!CanTooltipBeShown()) {
    HideTooltip();
    return;
  }
  if (!d->visible)
    d->stop(d->dismissTimer); // what is left of a leave before is not for this showing
  d->tellReason();
  if (!self || !d->tooltipWindow)
    return;
  d->visible = true; // whoever hides it while it is placed, hides it
  d->place();
  if (self && d->isShowing())
    showPopup(*d->tooltipWindow);
  if (!self || !d->isShowing())
    return;
  d->tooltipWindow->raise();
  if (d->checkTimerEnabled)
    d->check().start();
  if (const QWidget* const widget = d->reference())
    connect(widget, &QObject::destroyed, this, &ATooltipObject::ForceHideTooltip, Qt::UniqueConnection);
  TooltipManager::GetInstance().onShown(this);
  TooltipManager::GetInstance().HideAllTooltipsInGroupExcept(this, d->group);
}

void ATooltipObject::HideTooltip() {
  const QPointer<ATooltipObject> self(this);
  if (d->visible || (d->tooltipWindow && !d->tooltipWindow->isHidden())) {
    d->visible = false;
    d->stop(d->checkTimer);
    d->stop(d->dismissTimer); // else it would end the next showing
    TooltipManager::GetInstance().onHidden(this);
    if (d->tooltipWindow)
      d->tooltipWindow->hide();
  }
  if (self && std::exchange(d->tooltipHovered, false))
    d->callHandler(d->normalHandler);
}

bool ATooltipObject::CanTooltipBeShown() { return d->enabled && d->tooltipWindow; }

bool ATooltipObject::CheckMouseHover() const {
  return d->tooltipWindow && d->tooltipWindow->isVisible() &&
         ATooltipObjectPrivate::holdsCursor(*d->tooltipWindow);
}

void ATooltipObject::OnTooltipClicked() {
  if (d->clickToDismiss)
    HideTooltip();
}

QString ATooltipObject::TooltipGroup() const { return d->group; }

void ATooltipObject::SetTooltipGroup(const QString& group) {
  d->group = group;
  TooltipManager& manager = TooltipManager::GetInstance();
  manager.AddTooltip(this, group);
  if (d->visible)
    manager.HideAllTooltipsInGroupExcept(this, group);
}

bool ATooltipObject::IsVisible() const { return d->visible; }

void ATooltipObject::ForceHideTooltip() {
  d->stop(d->showUpTimer);
  HideTooltip();
}

bool ATooltipObject::IsTooltipEnabled() const { return d->enabled; }

void ATooltipObject::SetEnableTooltip(bool enable) {
  const bool was = std::exchange(d->enabled, enable);
  if (!enable)
    ForceHideTooltip();
  else if (!was)
    d->startUnderMouse();
}

void ATooltipObject::OnEnableTooltip(bool enable) { SetEnableTooltip(enable); }

// --- events

bool ATooltipObject::eventFilter(QObject* watched, QEvent* event) {
  if (!event)
    return false;
  if (!d->enabled)
    return event->type() == QEvent::ToolTip;
  switch (event->type()) {
  case QEvent::MouseButtonPress:
    EventFilterOnMouseButtonPress(watched, event);
    return false;
  case QEvent::MouseMove:
    EventFilterOnMouseMove(watched, event);
    return false;
  case QEvent::Enter:
    EventFilterOnEnter(watched);
    return false;
  case QEvent::Leave:
    EventFilterOnLeave(watched);
    return false;
  case QEvent::Hide:
    EventFilterOnHide(watched);
    return false;
  case QEvent::ToolTip:
    if (!d->useCustomSettings && d->mouseOverTooltip) {
      d->tooltipHovered = false;
      ShowTooltip();
    }
    return true;
  case QEvent::Resize:
    if (watched == d->tooltipWindow)
      d->followSize();
    break;
  default:
    break;
  }
  return QObject::eventFilter(watched, event);
}

void ATooltipObject::EventFilterOnEnter(QObject* object) {
  d->stop(d->dismissTimer);
  if (object == d->tooltipWindow && !std::exchange(d->tooltipHovered, true))
    d->callHandler(d->hoveredHandler);
}

void ATooltipObject::EventFilterOnLeave(QObject*) {
  if (d->useCustomSettings)
    d->stop(d->showUpTimer);
  if (!d->tooltipHovered)
    d->mouseOverTooltip = CheckMouseHover();
  d->startDismiss();
}

void ATooltipObject::EventFilterOnMouseMove(QObject*, QEvent*) {}

void ATooltipObject::EventFilterOnMouseButtonPress(QObject* object, QEvent*) {
  if (object == d->tooltipWindow)
    OnTooltipClicked();
}

void ATooltipObject::EventFilterOnHide(QObject*) {}

// --- timers

void ATooltipObject::OnTooltipTimerTimeOut() { ShowTooltip(); }

void ATooltipObject::OnTooltipDismissTimerTimeOut() {
  if (!d->hoverEventsEnabled || !CheckMouseHover())
    HideTooltip();
}

void ATooltipObject::OnTooltipCheckTimerTimeOut() { HideTooltip(); }

void ATooltipObject::SetCustomTooltipShowUpTime(int milliseconds) {
  d->showUpTime = milliseconds;
  if (d->showUpTimer)
    d->showUpTimer->setInterval(milliseconds);
}

void ATooltipObject::SetCustomTooltipDismissTime(int milliseconds) {
  d->dismissTime = milliseconds;
  if (d->dismissTimer)
    d->dismissTimer->setInterval(milliseconds);
}

void ATooltipObject::SetCustomTooltipCheckTime(int milliseconds) {
  d->checkTime = milliseconds;
  if (d->checkTimer)
    d->checkTimer->setInterval(milliseconds);
}

void ATooltipObject::SetUseCustomTooltipSettings(bool use) {
  d->useCustomSettings = use;
  if (!use)
    d->stop(d->showUpTimer);
}

void ATooltipObject::SetEnableCheckTimer(bool enable) {
  d->checkTimerEnabled = enable;
  if (!enable)
    d->stop(d->checkTimer);
}

void ATooltipObject::SetOverrideTooltipDismissTimer(bool enable) { d->overrideDismissTimer = enable; }

// --- content

QWidget* ATooltipObject::CreateTooltipControl(const QString& text) {
  return text.isNull() ? nullptr : new DefaultTooltip(text);
}

void ATooltipObject::SetTooltipControl(QWidget* control, bool arrowed) { d->setContent(control, arrowed); }

void ATooltipObject::SetTooltipText(const QString& text) {
  const QPointer<ATooltipObject> self(this);
  if (!text.isNull() && !d->make && d->pendingControl) {
    TooltipText::write(d->pendingControl, text);
    if (self && d->isShowing())
      d->place();
  } else {
    d->setContent(nullptr, d->useArrowedWindow);
  }
  if (!self)
    return;
  d->text = text;
  d->describe();
}

QString ATooltipObject::Text() const { return d->text; }

void ATooltipObject::SetTooltipFactory(std::function<QWidget*()> make, const QString& description,
                                       bool arrowed) {
  if (!d->setContent(nullptr, arrowed))
    return;
  d->make = std::move(make);
  d->text = description;
  d->describe();
}

QWidget* ATooltipObject::TooltipControl() const {
  return d->ensureContent() ? d->attachedControl.data() : nullptr;
}

void ATooltipObject::SetTooltipIndex(int index) {
  d->helpIndex = index;
  if (auto* const tooltip = qobject_cast<ATooltipEx*>(d->pendingControl))
    tooltip->SetTooltipIndex(index);
}

void ATooltipObject::SetTooltipKeyword(const QString& keyword) {
  d->helpKeyword = keyword;
  if (auto* const tooltip = qobject_cast<ATooltipEx*>(d->pendingControl))
    tooltip->SetTooltipKeyword(keyword);
}

// --- looks, place and reactions

void ATooltipObject::SetTooltipLayer(QWidget* layer) {
  d->layerFound = false;
  d->layer = layer;
  const QPointer<ATooltipObject> self(this);
  const QPointer<QWidget> guard(layer);
  const QList<QPointer<QWidget>> windows{d->arrowedWindow.data(), d->tooltipWindow};
  for (const QPointer<QWidget>& window : windows) {
    if (!self || !window || window->parentWidget() == guard)
      continue;
    HideTooltip();
    if (window)
      bringHome(*window); // as a window without a parent it would stay one of the desktop
    if (window)
      window->setParent(guard);
    if (window)
      window->hide();
  }
}

void ATooltipObject::SetTooltipType(ETooltipType type) {
  d->tooltipType = type;
  d->applyType();
  SetUseCustomTooltipSettings(true);
  const bool rich = TooltipLook::isRich(type);
  const TooltipTimes& times = TooltipManager::GetInstance().Times();
  SetCustomTooltipShowUpTime(rich ? times.showUp : 0);
  SetCustomTooltipDismissTime(rich ? times.dismiss : 0);
  if (rich) {
    SetClickToDismissTooltip(false);
    SetEnableHoverEvents(true);
  }
}

ETooltipType ATooltipObject::TooltipType() const { return d->tooltipType; }

void ATooltipObject::SetTooltipPlacement(const SArrowParam& arrow, EDirection direction, int distance,
                                         EWidgetsAlign alignment, const QPoint& offset) {
  d->placement =
      std::make_unique<TooltipPlacement>(TooltipPlacement{arrow, direction, distance, alignment, offset});
  if (d->arrowedWindow)
    d->applyArrow();
  if (d->posCalculator)
    d->applyPlacement();
}

ArrowedWindow* ATooltipObject::GetArrowedWindow() const { return &d->arrows(); }

WidgetPosCalculator* ATooltipObject::GetPosCalculator() const { return &d->calculator(); }

void ATooltipObject::SetClickToDismissTooltip(bool dismiss) { d->clickToDismiss = dismiss; }

void ATooltipObject::SetEnableHoverEvents(bool enable) { d->hoverEventsEnabled = enable; }

bool ATooltipObject::IsHoverEventsEnabled() const { return d->hoverEventsEnabled; }

void ATooltipObject::SetHoveredStateCallbackHandler(IHoverCallbackHandler* handler) {
  d->hoveredHandler = handler;
}

void ATooltipObject::SetNormalStateCallbackHandler(IHoverCallbackHandler* handler) {
  d->normalHandler = handler;
}

} // namespace Vela::UiBase
