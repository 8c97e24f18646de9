// SPDX-License-Identifier: MIT
#include "base_view.h"
#include "base_view_controller.h"
#include "base_view_p.h"
#include "presentation.h"
#include "view_focus.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointer>

#include <optional>
#include <utility>

namespace Vela::UiBase {

namespace {

bool isInput(QEvent::Type type) {
  switch (type) {
  case QEvent::MouseButtonPress:
  case QEvent::MouseButtonRelease:
  case QEvent::MouseButtonDblClick:
  case QEvent::MouseMove:
  case QEvent::Wheel:
  case QEvent::KeyPress:
  case QEvent::KeyRelease:
  case QEvent::ShortcutOverride:
  case QEvent::Enter:
  case QEvent::Leave:
  case QEvent::HoverEnter:
  case QEvent::HoverLeave:
  case QEvent::HoverMove:
  case QEvent::DragEnter:
  case QEvent::DragLeave:
  case QEvent::DragMove:
  case QEvent::Drop:
  case QEvent::ContextMenu:
  case QEvent::ToolTip:
  case QEvent::WhatsThis:
  case QEvent::QueryWhatsThis:
  case QEvent::TouchBegin:
  case QEvent::TouchUpdate:
  case QEvent::TouchEnd:
  case QEvent::TouchCancel:
  case QEvent::TabletPress:
  case QEvent::TabletMove:
  case QEvent::TabletRelease:
  case QEvent::NativeGesture:
  case QEvent::Gesture:
  case QEvent::GestureOverride:
    return true;
  default:
    return false;
  }
}

// Whether Qt works on with the view, or with others it has listed, when the event has been handled.
bool isPartOfWalk(const QEvent& event) {
  const QEvent::Type type = event.type();
  switch (type) {
  case QEvent::MouseButtonPress:
  case QEvent::MouseButtonRelease: // a question for a context menu follows
    return static_cast<const QMouseEvent&>(event).button() == Qt::RightButton;
  case QEvent::Enter:
  case QEvent::Leave:
    return true;
  case QEvent::Close:
  case QEvent::DeferredDelete:
  case QEvent::MetaCall:
  case QEvent::Timer:
    return false;
  default:
    return !isInput(type);
  }
}

// What was begun with a button that is held ends: its release may go elsewhere. What happens to the whole
// window the view is told of before.
bool losesMouse(const QWidget& view, const QEvent& event) {
  const QEvent::Type type = event.type();
  return type == QEvent::FocusOut || (type == QEvent::EnabledChange && !view.isEnabled());
}

// Of an event that loses the mouse: the release goes to a dialog or a menu, or to nobody.
bool losesRelease(const QEvent& event) {
  if (event.type() == QEvent::FocusOut)
    return static_cast<const QFocusEvent&>(event).reason() == Qt::PopupFocusReason;
  return event.type() != QEvent::WindowDeactivate;
}

// What heard that the view is hidden has shown it again, and afterwards Qt hid its children: they would stay
// invisible in a view that is seen. They cannot be shown before they count as hidden.
void showChildrenAgain(BaseView& view) {
  QList<QPointer<QWidget>> left;
  const auto children = view.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly);
  for (QWidget* const child : children) {
    if (!child->isWindow() && !child->isHidden() && !child->isVisible())
      left.append(child);
  }
  const QPointer<BaseView> self(&view);
  for (const QPointer<QWidget>& child : std::as_const(left)) {
    if (!self || !child || child->parentWidget() != self || child->isHidden() || !self->isVisible())
      continue;
    child->setAttribute(Qt::WA_WState_Hidden);
    child->show();
  }
}

// What heard that the view is hidden, in order to be moved, has shown it again: Qt would move it as it is and
// tell nobody that it is seen no more. Who always does is left to itself.
void hideForMove(BaseView& view) {
  constexpr int maxTurns = 4;
  const QPointer<BaseView> self(&view);
  for (int turn = 0; turn < maxTurns && self && self->isVisible(); ++turn) {
    self->hide();
    if (self)
      self->setAttribute(Qt::WA_WState_ExplicitShowHide, false); // as Qt does
  }
}

} // namespace

bool BaseView::event(QEvent* event) {
  if (d->dying) // of an event loop that runs in what its destructor calls
    return false;
  const bool isMove = event->type() == QEvent::MouseMove; // none comes as often
  return isMove && !d->presentation->isCovered(*this) ? QWidget::event(event) : handle(event);
}

bool BaseView::handle(QEvent* event) {
  const QEvent::Type type = event->type();
  std::optional<ViewsInUse> inUse;
  if (isPartOfWalk(*event))
    inUse.emplace();
  if (isInput(type)) {
    if (d->awaits(type) || !d->presentation->isCovered(*this)) {
      const QPointer<BaseView> live(this);
      if (type == QEvent::MouseButtonPress)
        takeFocusOfPress();
      return live && QWidget::event(event);
    }
    d->forgetClick();
    if (type == QEvent::KeyRelease)
      d->lastKey = Qt::Key_unknown;
    event->ignore();
    return false;
  }
  if (losesMouse(*this, *event) && !loseMouse(*event))
    return true;
  if (type == QEvent::HideToParent && isVisible()) {
    showChildrenAgain(*this); // which calls out
    return true;
  }
  if (type == QEvent::HideToParent && holdsFocus(*this)) {
    const QPointer<BaseView> self(this);
    window()->focusWidget()->clearFocus(); // of a page that is not seen: Qt leaves it there
    if (self)
      passFocusOn(*this);
    return true;
  }
  if (type == QEvent::ParentAboutToChange) {
    ++d->moves;
    hideForMove(*this);
  }
  if (type != QEvent::ParentChange && type != QEvent::FocusIn && type != QEvent::EnabledChange)
    return QWidget::event(event);

  if (type == QEvent::ParentChange && d->moves > 0) // none was announced for a view never seen
    --d->moves;
  const QPointer<BaseView> self(this);
  const bool handled = QWidget::event(event);
  const auto presentation = self ? d->presentation : nullptr;
  if (self && type == QEvent::ParentChange)
    presentation->reparented(*this);
  else if (self && type == QEvent::EnabledChange)
    presentation->enabledChanged(*this);
  else if (self && presentation->isCovered(*this))
    passCoveredFocusOn(*static_cast<QFocusEvent*>(event));
  return handled;
}

/// @return whether the view lives.
bool BaseView::loseMouse(const QEvent& event) {
  if (losesRelease(event))
    d->forgetClick();
  const QPointer<BaseView> self(this);
  if (const auto controller = ownController())
    controller->mouseWasLost();
  return self;
}

// Not by a click policy: Qt would give it the focus for presses on its toolbars too, which take none.
void BaseView::takeFocusOfPress() {
  if (isVisible() && !hasFocus() && (focusPolicy() & Qt::TabFocus))
    setFocus(Qt::MouseFocusReason);
}

void BaseView::passCoveredFocusOn(const QFocusEvent& event) {
  const QPointer<BaseView> self(this);
  const bool forwards = event.reason() == Qt::TabFocusReason;
  if (forwards || event.reason() == Qt::BacktabFocusReason)
    focusNextPrevChild(forwards);
  if (self && hasFocus())
    Presentation::of(*this)->focusFront();
}

/// Hands an event to the controller.
/// @return whether the event is done: the controller consumed it, or the view died of it.
template <class Event>
bool BaseView::handOn(bool (ViewResponder::*handler)(Event*), Event* event) {
  ViewResponder* const controller = d->controller.get();
  if (!controller)
    return false;
  const ControllerInUse inUse(*d);
  return (controller->*handler)(event) || inUse.viewEnded();
}

// The release of a double click went elsewhere when the mouse is back without a button, or a press finds no
// other one held; QWidget passes the double click itself on as a press. Events that a program made up need
// not carry the buttons.
void BaseView::mousePressEvent(QMouseEvent* event) {
  if (event->spontaneous() && event->type() == QEvent::MouseButtonPress &&
      event->buttons() == event->button())
    d->doubleClicking = false;
  d->movedWhilePressed = false;
  d->pressed = true;
  // A double click that is declined comes here from Qt, and may have lost the mouse by then.
  const bool isPress = !d->doubleClicking && event->type() == QEvent::MouseButtonPress;
  if (!isPress || !handOn(&ViewResponder::mousePress, event))
    QWidget::mousePressEvent(event);
}

void BaseView::mouseMoveEvent(QMouseEvent* event) {
  if (event->spontaneous() && event->buttons() == Qt::NoButton) {
    d->doubleClicking = false;
    d->pressed = false;
  }
  d->movedWhilePressed = d->pressed;
  if (!handOn(&ViewResponder::mouseMove, event))
    QWidget::mouseMoveEvent(event);
}

void BaseView::mouseReleaseEvent(QMouseEvent* event) {
  d->pressed = false;
  // Cleared first: the view may not live to see the end of the release.
  const bool endsDoubleClick = std::exchange(d->doubleClicking, false);
  if (endsDoubleClick || !handOn(&ViewResponder::mouseRelease, event))
    QWidget::mouseReleaseEvent(event);
}

void BaseView::mouseDoubleClickEvent(QMouseEvent* event) {
  if (d->movedWhilePressed)
    return;
  d->doubleClicking = true;
  if (!handOn(&ViewResponder::mouseDoubleClick, event))
    QWidget::mouseDoubleClickEvent(event);
}

void BaseView::wheelEvent(QWheelEvent* event) {
  if (!handOn(&ViewResponder::mouseWheel, event))
    QWidget::wheelEvent(event);
}

void BaseView::enterEvent(QEnterEvent* event) {
  d->entered = true;
  if (!handOn<QEvent>(&ViewResponder::mouseEnter, event))
    QWidget::enterEvent(event);
}

void BaseView::leaveEvent(QEvent* event) {
  d->entered = false;
  if (!handOn(&ViewResponder::mouseLeave, event))
    QWidget::leaveEvent(event);
}

void BaseView::dragEnterEvent(QDragEnterEvent* event) {
  d->dragEntered = true;
  if (!handOn(&ViewResponder::mouseDragEnter, event))
    QWidget::dragEnterEvent(event);
}

void BaseView::dragLeaveEvent(QDragLeaveEvent* event) {
  d->dragEntered = false;
  if (!handOn(&ViewResponder::mouseDragLeave, event))
    QWidget::dragLeaveEvent(event);
}

void BaseView::dragMoveEvent(QDragMoveEvent* event) {
  if (!handOn(&ViewResponder::mouseDragMove, event))
    QWidget::dragMoveEvent(event);
}

void BaseView::dropEvent(QDropEvent* event) {
  d->dragEntered = false;
  if (!handOn(&ViewResponder::mouseDrop, event))
    QWidget::dropEvent(event);
}

void BaseView::keyPressEvent(QKeyEvent* event) {
  d->lastKey = event->key();
  if (!handOn(&ViewResponder::keyPress, event))
    QWidget::keyPressEvent(event);
}

void BaseView::keyReleaseEvent(QKeyEvent* event) {
  d->lastKey = Qt::Key_unknown;
  if (!handOn(&ViewResponder::keyRelease, event))
    QWidget::keyReleaseEvent(event);
}

} // namespace Vela::UiBase
