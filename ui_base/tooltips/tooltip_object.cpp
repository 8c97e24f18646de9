// SPDX-License-Identifier: MIT
#include "tooltip_object.h"

#include "tooltip_object_p.h"
#include "tooltip_reason_news.h"

#include <ui_base/tooltips/tooltip_reason.h>

#include <QAccessible>
#include <QChildEvent>
#include <QFocusEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointer>

#include <utility>

namespace Vela::UiBase {

QWidget* TooltipObjectPrivate::reference() const { return attachedWidget; }

void TooltipObjectPrivate::describe() {
  ownDescription = description();
  giveDescription();
}

void TooltipObjectPrivate::giveDescription() {
  if (!attachedWidget || attachedWidget->accessibleDescription() != givenDescription)
    return;
  const QString composed = TooltipReason::composed(ownDescription, reason());
  if (composed == givenDescription)
    return;
  givenDescription = composed;
  attachedWidget->setAccessibleDescription(givenDescription);
}

void TooltipObjectPrivate::tellReason() {
  ATooltipObjectPrivate::tellReason();
  giveDescription();
}

QString TooltipObjectPrivate::reason() const {
  return attachedWidget ? TooltipReason::of(*attachedWidget) : QString();
}

// --- what lies in the widget

namespace {

constexpr const char* ownerProperty = "vela_tooltip_owner";

bool hasTooltip(const QWidget& widget) {
  return widget.property(ownerProperty).toInt() > 0 || !widget.toolTip().isEmpty();
}

void countOwner(QWidget& widget, int more) {
  widget.setProperty(ownerProperty, widget.property(ownerProperty).toInt() + more);
}

} // namespace

bool TooltipObjectPrivate::isPart(const QObject* candidate) const {
  if (!attachedWidget || !candidate->isWidgetType())
    return false;
  const auto* widget = static_cast<const QWidget*>(candidate);
  while (widget && widget != attachedWidget && !widget->isWindow() && !hasTooltip(*widget))
    widget = widget->parentWidget();
  return widget == attachedWidget;
}

void TooltipObjectPrivate::watchPart(QWidget& part) {
  if (part.isWindow())
    return;
  if (isPart(&part))
    part.setMouseTracking(true);
  part.installEventFilter(object); // one that is none tells when the mouse comes to it
}

void TooltipObjectPrivate::watchParts() {
  const auto parts = attachedWidget->findChildren<QWidget*>();
  for (QWidget* const part : parts)
    watchPart(*part);
}

void TooltipObjectPrivate::onPartEvent(QObject* part, QEvent* event) {
  auto* const tooltip = static_cast<TooltipObject*>(object);
  switch (event->type()) {
  case QEvent::MouseMove:
    if (isPart(part))
      tooltip->EventFilterOnMouseMove(attachedWidget, event);
    break;
  case QEvent::MouseButtonPress:
    if (isPart(part))
      tooltip->EventFilterOnMouseButtonPress(attachedWidget, event);
    break;
  case QEvent::Enter: // to one with a tooltip of its own, perhaps made since
    if (!isPart(part))
      tooltip->ForceHideTooltip();
    break;
  default:
    break;
  }
}

bool TooltipObjectPrivate::isOverPart(const QPoint& position) const {
  const QWidget* const child = attachedWidget->childAt(position);
  return !child || isPart(child);
}

void TooltipObjectPrivate::startUnderMouse() {
  if (!enabled || visible || !useCustomSettings || !attachedWidget || !attachedWidget->underMouse() ||
      QGuiApplication::mouseButtons() != Qt::NoButton)
    return;
  mouseInside = true;
  startShowUp();
}

// --- what the keyboard does

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
    : ATooltipObject(state, group, parent) {
  connect(&TooltipReasonNews::Instance(), &TooltipReasonNews::changed, this, &TooltipObject::followReason);
}

TooltipObject::~TooltipObject() {
  d->end();
  if (QWidget* const widget = own()->attachedWidget)
    countOwner(*widget, -1);
}

// Nobody else would hear of it.
void TooltipObject::followReason() {
  if (d->enabled && (d->visible || QAccessible::isActive()))
    d->tellReason();
}

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
  countOwner(*widget, 1);
  if (d->posCalculator)
    d->posCalculator->SetRefWidget(widget);
  d->describe();
  if (widget->underMouse())
    own()->watchParts();
  own()->startUnderMouse();
}

void TooltipObject::Detach() {
  QWidget* const widget = own()->attachedWidget;
  if (!widget)
    return;
  ForceHideTooltip();
  widget->removeEventFilter(this);
  const auto parts = widget->findChildren<QWidget*>();
  for (QWidget* const part : parts)
    part->removeEventFilter(this);
  countOwner(*widget, -1);
  disconnect(widget, &QObject::destroyed, this, &ATooltipObject::ForceHideTooltip);
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
  const bool pressed = static_cast<QMouseEvent*>(event)->buttons() != Qt::NoButton && own()->dismissOnPress;
  if (own()->mouseInside) {
    if (d->useCustomSettings && !d->visible && !pressed) {
      d->tooltipHovered = false;
      d->startShowUp();
    }
    d->stop(d->dismissTimer);
  } else {
    d->stop(d->showUpTimer);
  }
}

void TooltipObject::EventFilterOnMouseButtonPress(QObject* object, QEvent* event) {
  if (object != own()->attachedWidget) {
    ATooltipObject::EventFilterOnMouseButtonPress(object, event);
    return;
  }
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
  if (!event)
    return false;
  const QPointer<TooltipObject> self(this);
  const bool isWidget = watched == own()->attachedWidget;
  if (!isWidget && watched != d->tooltipWindow) {
    if (d->enabled)
      own()->onPartEvent(watched, event);
    return false;
  }
  if (isWidget && event->type() == QEvent::ChildPolished) {
    // clazy:excludeall=child-event-qobject-cast (it is whole when it is polished)
    if (auto* const child = qobject_cast<QWidget*>(static_cast<QChildEvent*>(event)->child());
        child && own()->mouseInside)
      own()->watchPart(*child);
  }
  if (isWidget && event->type() == QEvent::Enter)
    own()->watchParts();
  // What a child with a tooltip of its own has no use for comes here as well.
  if (isWidget && event->type() == QEvent::MouseMove &&
      !own()->isOverPart(static_cast<QMouseEvent*>(event)->position().toPoint()))
    return false;
  if (d->enabled && isWidget) {
    if (event->type() == QEvent::FocusIn)
      own()->onFocusIn(*static_cast<QFocusEvent*>(event));
    else if (event->type() == QEvent::FocusOut)
      own()->onFocusOut();
    else if (event->type() == QEvent::KeyPress)
      own()->onKeyPress(*static_cast<QKeyEvent*>(event));
    else if (event->type() == QEvent::EnabledChange)
      followReason();
  }
  return self && ATooltipObject::eventFilter(watched, event);
}

} // namespace Vela::UiBase
