// SPDX-License-Identifier: MIT
#include "base_view.h"

#include "application_event_relay.h"
#include "base_view_accessible.h"
#include "base_view_controller.h"
#include "base_view_p.h"
#include "closing_views.h"
#include "presentation.h"
#include "view_focus.h"

#include <QCoreApplication>
#include <QEvent>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QMouseEvent>

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

/// Marks a view as being in its show or hide event.
class EventScope {
public:
  EventScope(BaseView& view, BaseViewPrivate& d) : m_view(&view), m_d(d) { ++m_d.showingOrHiding; }
  ~EventScope() {
    if (m_view)
      --m_d.showingOrHiding;
  }
  Q_DISABLE_COPY_MOVE(EventScope)

private:
  const QPointer<BaseView> m_view;
  BaseViewPrivate& m_d;
};

} // namespace

BaseView::BaseView(QWidget* parent, Qt::WindowFlags flags)
    : QWidget(parent, flags), d(std::make_unique<BaseViewPrivate>()) {
  d->presentation = std::make_shared<Presentation>(*this);
  setAttribute(Qt::WA_DeleteOnClose);
  setFocusPolicy(Qt::TabFocus);
  makeViewsAccessible();
  ApplicationEventRelay::add(*this);
}

BaseView::~BaseView() {
  ApplicationEventRelay::remove(*this);
  const auto controller = std::exchange(d->controller, nullptr);
  const QPointer<BaseViewController> left(controller.get());
  if (left)
    left->forgetView(this);
  if (left)
    left->tellIfViewIsLost();
  const auto presentation = d->presentation;
  presentation->viewDies(*this);
}

void BaseView::setViewController(BaseViewController* controller) {
  if (controller == d->controller.get())
    return;
  const QPointer<BaseView> self(this);
  const QPointer<BaseViewController> next(controller);
  const auto shared = Taren::Objects::adoptShared(controller);
  const QPointer<BaseView> former = controller ? controller->getView() : nullptr;
  if (former)
    Presentation::of(*former)->controllerWillChange(*former);
  if (self)
    Presentation::of(*this)->controllerWillChange(*this);
  if (!self || (controller && !next))
    return;

  const auto before = std::exchange(d->controller, shared);
  const QPointer<BaseViewController> previous(before.get());
  if (previous)
    previous->forgetView(this);
  if (next)
    next->takeView(this);
  const auto presentation = d->presentation;
  presentation->controllerChanged(*this);
  if (former && former != self)
    Presentation::of(*former)->controllerChanged(*former);
  if (previous)
    previous->tellIfViewIsLost();
}

BaseViewController* BaseView::getViewController() const { return d->controller.get(); }

// A controller that was given to another view hears of the life of that one.
std::shared_ptr<BaseViewController> BaseView::ownController() const {
  return d->controller && d->controller->getView() == this ? d->controller : nullptr;
}

QList<PresentedView> BaseView::presentation() const { return d->presentation->describe(); }

// Called by a controller that is being deleted by hand.
void BaseView::dropViewController(const BaseViewController* controller) {
  if (d->controller.get() != controller)
    return;
  d->controller.reset();
  const auto presentation = d->presentation;
  presentation->controllerChanged(*this);
}

// As soon as Qt has done with it.
void BaseView::deleteSafely() {
  if (d->showingOrHiding)
    deleteLater();
  else
    delete this;
}

bool BaseView::event(QEvent* event) {
  const QEvent::Type type = event->type();
  if (isInput(type)) {
    if (!d->presentation->isCovered(*this)) {
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
  if (type != QEvent::ParentChange && type != QEvent::FocusIn)
    return QWidget::event(event);

  const QPointer<BaseView> self(this);
  const bool handled = QWidget::event(event);
  const auto presentation = self ? d->presentation : nullptr;
  if (self && type == QEvent::ParentChange)
    presentation->reparented(*this);
  else if (self && presentation->isCovered(*this))
    passCoveredFocusOn(*static_cast<QFocusEvent*>(event));
  return handled;
}

// Not by a click policy: Qt would give it the focus for presses on its toolbars too, which take none.
void BaseView::takeFocusOfPress() {
  if (!hasFocus() && (focusPolicy() & Qt::TabFocus))
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
  const std::shared_ptr<BaseViewController> controller = d->controller;
  if (!controller)
    return false;
  const QPointer<BaseView> self(this);
  return (static_cast<ViewResponder&>(*controller).*handler)(event) || !self;
}

void BaseView::mousePressEvent(QMouseEvent* event) {
  d->movedWhilePressed = false;
  d->pressed = true;
  if (d->doubleClicking || !handOn(&ViewResponder::mousePress, event))
    QWidget::mousePressEvent(event);
}

void BaseView::mouseMoveEvent(QMouseEvent* event) {
  forgetLostClick(*event);
  d->movedWhilePressed = d->pressed;
  if (!handOn(&ViewResponder::mouseMove, event))
    QWidget::mouseMoveEvent(event);
}

// The release of a double click went elsewhere when the mouse is back without a button. Events that a program
// made up need not carry the buttons.
void BaseView::forgetLostClick(const QMouseEvent& event) {
  if (event.buttons() != Qt::NoButton || !event.spontaneous())
    return;
  d->doubleClicking = false;
  d->pressed = false;
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
  if (!handOn<QEvent>(&ViewResponder::mouseEnter, event))
    QWidget::enterEvent(event);
}

void BaseView::leaveEvent(QEvent* event) {
  if (!handOn(&ViewResponder::mouseLeave, event))
    QWidget::leaveEvent(event);
}

void BaseView::dragEnterEvent(QDragEnterEvent* event) {
  if (!handOn(&ViewResponder::mouseDragEnter, event))
    QWidget::dragEnterEvent(event);
}

void BaseView::dragLeaveEvent(QDragLeaveEvent* event) {
  if (!handOn(&ViewResponder::mouseDragLeave, event))
    QWidget::dragLeaveEvent(event);
}

void BaseView::dragMoveEvent(QDragMoveEvent* event) {
  if (!handOn(&ViewResponder::mouseDragMove, event))
    QWidget::dragMoveEvent(event);
}

void BaseView::dropEvent(QDropEvent* event) {
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

void BaseView::showEvent(QShowEvent* event) {
  const QPointer<BaseView> self(this);
  const EventScope scope(*this, *d);
  const bool takesFocus = !event->spontaneous() && !std::exchange(d->focusElsewhere, false);
  Presentation::of(*this)->willShow(*this, takesFocus);
  if (!self)
    return;
  setMouseTracking(true);
  setAcceptDrops(true);
  ViewWindow::watch(*window());
  loadController();
  if (self)
    Presentation::of(*this)->didLoad(*this);
  if (self)
    QWidget::showEvent(event);
}

// A controller may attach another one when it is loaded.
void BaseView::loadController() {
  const QPointer<BaseView> self(this);
  const BaseViewController* asked = nullptr;
  while (const auto controller = self ? ownController() : nullptr) {
    if (controller->isLoaded() || controller.get() == asked)
      return;
    asked = controller.get();
    controller->viewDidLoad();
  }
}

void BaseView::hideEvent(QHideEvent* event) {
  const QPointer<BaseView> self(this);
  const EventScope scope(*this, *d);
  const bool minimised = event->spontaneous();
  const bool hadFocus = !minimised && holdsFocus(*this);
  if (hadFocus)
    Presentation::of(*this)->rememberFocus(*this);
  Presentation::of(*this)->willHide(*this, minimised);
  if (!self)
    return;
  d->forgetClick();
  QWidget::hideEvent(event);
  setMouseTracking(false);
  setAcceptDrops(false);
  if (minimised)
    return;
  d->focusElsewhere = !isHidden() && !hadFocus;
  clearFocus();
  if (self)
    Presentation::of(*this)->didHide(*this, hadFocus);
}

void BaseView::closeEvent(QCloseEvent* event) {
  const QPointer<BaseView> self(this);
  const bool agreed = mayClose(*this);
  if (!agreed)
    event->ignore();
  if (!agreed || !self)
    return;
  d->closed = testAttribute(Qt::WA_DeleteOnClose);
  QWidget::closeEvent(event);
}

void BaseView::moveEvent(QMoveEvent* event) {
  const QPointer<BaseView> self(this);
  if (const auto controller = ownController())
    controller->viewDidMove(event);
  if (self)
    QWidget::moveEvent(event);
}

void BaseView::resizeEvent(QResizeEvent* event) {
  const QPointer<BaseView> self(this);
  if (const auto controller = ownController())
    controller->viewDidResize(event);
  if (self)
    QWidget::resizeEvent(event);
}

bool BaseView::eventFilter(QObject* watched, QEvent* event) {
  const QPointer<BaseView> self(this);
  if (QWidget* const parent = parentWidget();
      parent && watched == parent && event->type() == QEvent::Resize) {
    resize(parent->size());
    if (!self)
      return false;
    repaint();
  } else if (watched == QCoreApplication::instance() && event->type() == QEvent::ApplicationDeactivate &&
             d->lastKey == Qt::Key_Alt) {
    // Alt+Tab: the release of Alt goes to another program.
    QCoreApplication::postEvent(
        this, new QKeyEvent(QEvent::KeyRelease, Qt::Key_Alt, Qt::NoModifier, QString(), false, 1));
  }
  return self && QWidget::eventFilter(watched, event);
}

} // namespace Vela::UiBase
