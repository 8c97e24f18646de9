// SPDX-License-Identifier: MIT
#include "tooltip_object.h"

#include "tooltip_object_p.h"

#include <ui_base/tooltips/tooltip_reason.h>

#include <QAccessible>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointer>

#include <utility>

namespace Vela::UiBase {

// --- what the keyboard does

QWidget* TooltipObjectPrivate::reference() const { return attachedWidget; }

void TooltipObjectPrivate::describe() {
  ownDescription = description();
  giveDescription();
}

void TooltipObjectPrivate::giveDescription() {
  if (!attachedWidget || attachedWidget->accessibleDescription() != givenDescription)
    return;
  givenDescription = TooltipReason::composed(ownDescription, reason());
  attachedWidget->setAccessibleDescription(givenDescription);
}

void TooltipObjectPrivate::tellReason() {
  ATooltipObjectPrivate::tellReason();
  giveDescription();
}

QString TooltipObjectPrivate::reason() const {
  return attachedWidget ? TooltipReason::of(*attachedWidget) : QString();
}

void TooltipObjectPrivate::onFocusIn(const QFocusEvent& event) {
  const bool byKeyboard = event.reason() == Qt::TabFocusReason || event.reason() == Qt::BacktabFocusReason ||
                          event.reason() == Qt::ShortcutFocusReason || event.reason() == Qt::OtherFocusReason;
  if (!byKeyboard || !useCustomSettings || visible)
    return;
  broughtByFocus = true;
  startShowUp();
}

void TooltipObjectPrivate::onFocusOut() {
  if (std::exchange(broughtByFocus, false))
    object->ForceHideTooltip();
}

void TooltipObjectPrivate::onKeyPress(const QKeyEvent& event) {
  switch (event.key()) {
  case Qt::Key_Shift:
  case Qt::Key_Control:
  case Qt::Key_Alt:
  case Qt::Key_AltGr:
  case Qt::Key_Meta:
  case Qt::Key_F1: // asks for more
    return;
  default:
    object->ForceHideTooltip();
  }
}

// --- the object

TooltipObject::TooltipObject(const QString& group, QObject* parent)
    : TooltipObject(*new TooltipObjectPrivate, group, parent) {}

TooltipObject::TooltipObject(TooltipObjectPrivate& state, const QString& group, QObject* parent)
    : ATooltipObject(state, group, parent) {}

TooltipObject::~TooltipObject() = default;

TooltipObjectPrivate* TooltipObject::own() const { return static_cast<TooltipObjectPrivate*>(d.get()); }

void TooltipObject::AttachTo(QWidget* widget) {
  if (!widget || widget == own()->attachedWidget)
    return;
  Detach();
  own()->attachedWidget = widget;
  own()->givenDescription.clear();
  widget->setFocusPolicy(Qt::NoFocus);
  widget->setMouseTracking(true);
  widget->installEventFilter(this);
  if (d->posCalculator)
    d->posCalculator->SetRefWidget(widget);
  d->describe();
}

void TooltipObject::Detach() {
  QWidget* const widget = own()->attachedWidget;
  if (!widget)
    return;
  ForceHideTooltip();
  widget->removeEventFilter(this);
  widget->disconnect(this);
  if (widget->accessibleDescription() == own()->givenDescription)
    widget->setAccessibleDescription(QString());
  own()->attachedWidget = nullptr;
  own()->mouseInside = false;
  own()->broughtByFocus = false;
  if (d->posCalculator)
    d->posCalculator->SetRefWidget(nullptr);
}

QWidget* TooltipObject::AttachedWidget() const { return own()->attachedWidget; }

void TooltipObject::SetDismissOnPress(bool dismiss) { own()->dismissOnPress = dismiss; }

bool TooltipObject::CanTooltipBeShown() {
  return ATooltipObject::CanTooltipBeShown() && own()->attachedWidget && own()->attachedWidget->isVisible();
}

bool TooltipObject::CheckMouseHover() const {
  const QWidget* const widget = own()->attachedWidget;
  if (widget && ATooltipObjectPrivate::holdsCursor(*widget))
    return true;
  return ATooltipObject::CheckMouseHover();
}

// --- events

void TooltipObject::EventFilterOnEnter(QObject* object) {
  if (object == own()->attachedWidget) {
    d->stop(d->dismissTimer);
    own()->mouseInside = true;
    d->callHandler(d->hoveredHandler);
  } else if (d->hoverEventsEnabled) {
    ATooltipObject::EventFilterOnEnter(object);
  } else {
    // The mouse on the tooltip does not keep it.
    d->tooltipHovered = object == d->tooltipWindow;
  }
}

void TooltipObject::EventFilterOnLeave(QObject* object) {
  if (d->useCustomSettings)
    d->stop(d->showUpTimer);
  const QPointer<TooltipObject> self(this);
  if (d->tooltipHovered) {
    own()->mouseInside = true;
  } else {
    d->mouseOverTooltip = CheckMouseHover();
    if (object == own()->attachedWidget) {
      own()->mouseInside = false;
      d->callHandler(d->normalHandler);
    }
  }
  if (self)
    d->startDismiss();
}

void TooltipObject::EventFilterOnMouseMove(QObject* object, QEvent* event) {
  if (object != own()->attachedWidget || d->tooltipHovered)
    return;
  if (own()->mouseInside) {
    if (d->useCustomSettings && !d->visible) {
      d->tooltipHovered = false;
      d->startShowUp();
    }
    d->stop(d->dismissTimer);
  } else {
    d->stop(d->showUpTimer);
  }
  own()->leftButtonPressed = static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton;
}

void TooltipObject::EventFilterOnMouseButtonPress(QObject* object, QEvent* event) {
  if (object != own()->attachedWidget) {
    ATooltipObject::EventFilterOnMouseButtonPress(object, event);
    return;
  }
  own()->leftButtonPressed = true;
  if (own()->dismissOnPress)
    ForceHideTooltip();
}

void TooltipObject::EventFilterOnHide(QObject* object) {
  if (object == own()->attachedWidget)
    ForceHideTooltip();
  else if (d->visible)
    HideTooltip();
}

bool TooltipObject::eventFilter(QObject* watched, QEvent* event) {
  const QPointer<TooltipObject> self(this);
  if (d->enabled && watched == own()->attachedWidget) {
    if (event->type() == QEvent::FocusIn)
      own()->onFocusIn(*static_cast<QFocusEvent*>(event));
    else if (event->type() == QEvent::FocusOut)
      own()->onFocusOut();
    else if (event->type() == QEvent::KeyPress)
      own()->onKeyPress(*static_cast<QKeyEvent*>(event));
    else if (event->type() == QEvent::EnabledChange && (d->visible || QAccessible::isActive()))
      d->tellReason();
  }
  return self && ATooltipObject::eventFilter(watched, event);
}

} // namespace Vela::UiBase
