// SPDX-License-Identifier: MIT
#include "base_view.h"

#include "application_event_relay.h"
#include "base_view_controller.h"

#include <QCoreApplication>
#include <QEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointer>

#include <utility>

namespace Vela::UiBase {

class BaseViewPrivate {
public:
  bool doubleClicking = false; // a double click was handed on; presses and releases are not
  bool movedWhilePressed = false;
  bool pressed = false;
  std::shared_ptr<BaseViewController> controller;
  int lastKey = Qt::Key_unknown;
};

BaseView::BaseView(QWidget* parent, Qt::WindowFlags flags)
    : QWidget(parent, flags), d(std::make_unique<BaseViewPrivate>()) {
  setAttribute(Qt::WA_DeleteOnClose);
  ApplicationEventRelay::add(*this);
}

BaseView::~BaseView() {
  ApplicationEventRelay::remove(*this);
  const auto controller = std::exchange(d->controller, nullptr);
  if (controller)
    controller->letGoOfView(this);
}

void BaseView::setViewController(BaseViewController* controller) {
  if (controller == d->controller.get())
    return;
  auto next = Taren::Objects::adoptShared(controller);
  const auto previous = std::exchange(d->controller, std::move(next));
  if (previous)
    previous->letGoOfView(this);
  if (controller)
    controller->takeView(this);
}

BaseViewController* BaseView::getViewController() const { return d->controller.get(); }

// Called by a controller that is being deleted by hand.
void BaseView::dropViewController(const BaseViewController* controller) {
  if (d->controller.get() == controller)
    d->controller.reset();
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
  setFocus();
  setMouseTracking(true);
  setAcceptDrops(true);
  if (const auto controller = d->controller) {
    const QPointer<BaseView> self(this);
    if (!controller->isLoaded())
      controller->viewDidLoad();
    if (self)
      controller->viewWillAppear();
    if (!self)
      return;
  }
  QWidget::showEvent(event);
}

void BaseView::hideEvent(QHideEvent* event) {
  if (const auto controller = d->controller)
    controller->viewWillDisappear();
  QWidget::hideEvent(event);
  clearFocus();
  setMouseTracking(false);
  setAcceptDrops(false);
}

void BaseView::closeEvent(QCloseEvent* event) {
  if (const auto controller = d->controller; controller && controller->isLoaded()) {
    const QPointer<BaseView> self(this);
    if (!controller->viewWillClose()) {
      event->ignore();
      return;
    }
    if (!self)
      return;
  }
  QWidget::closeEvent(event);
}

void BaseView::moveEvent(QMoveEvent* event) {
  if (const auto controller = d->controller)
    controller->viewDidMove(event);
  QWidget::moveEvent(event);
}

void BaseView::resizeEvent(QResizeEvent* event) {
  if (const auto controller = d->controller)
    controller->viewDidResize(event);
  QWidget::resizeEvent(event);
}

bool BaseView::eventFilter(QObject* watched, QEvent* event) {
  if (QWidget* const parent = parentWidget();
      parent && watched == parent && event->type() == QEvent::Resize) {
    resize(parent->size());
    repaint();
  } else if (watched == QCoreApplication::instance() && event->type() == QEvent::ApplicationDeactivate &&
             d->lastKey == Qt::Key_Alt) {
    // Alt+Tab: the release of Alt goes to another program.
    QCoreApplication::postEvent(
        this, new QKeyEvent(QEvent::KeyRelease, Qt::Key_Alt, Qt::NoModifier, QString(), false, 1));
  }
  return QWidget::eventFilter(watched, event);
}

} // namespace Vela::UiBase
