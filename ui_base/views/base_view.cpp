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
#include <QKeyEvent>
#include <QStackedWidget>

#include <utility>

namespace Vela::UiBase {

namespace {

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

// By what it stands in: a hidden page, or tabs that hide it as a page.
bool isHiddenByPlace(const BaseView& view) {
  return !view.isHidden() || qobject_cast<QStackedWidget*>(view.parentWidget());
}

// What heard of its new place and size, before it was seen, has hidden the view: Qt goes on to show it.
bool hideAgain(BaseView& view) {
  if (!view.isHidden() || !view.isVisible())
    return false;
  view.setAttribute(Qt::WA_WState_Hidden, false);
  view.hide();
  return true;
}

// Qt goes on to map a window that is hidden in its own show event, and shows the widget again when that
// window is moved into another one.
void keepUnmapped(BaseView& view, BaseViewPrivate& d) {
  const bool inShowEvent = d.showingOrHiding > 1;
  if (!inShowEvent || !view.isWindow() || view.testAttribute(Qt::WA_DontShowOnScreen) || view.isVisible())
    return;
  view.setAttribute(Qt::WA_DontShowOnScreen);
  d.keptUnmapped = true;
}

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
  d->dying = true;
  const ViewsInUse inUse; // what it stands in must outlive it
  ApplicationEventRelay::remove(*this);
  const auto controller = std::exchange(d->controller, nullptr);
  ControllerInUse::handOver(*d, controller);
  const QPointer<BaseViewController> left(controller.get());
  if (left)
    left->forgetView(this);
  if (left)
    left->tellIfViewIsLost();
  const auto presentation = d->presentation;
  presentation->viewDies(*this);
}

void BaseView::setViewController(BaseViewController* controller) {
  if (controller == d->controller.get() || d->dying)
    return;
  const QPointer<BaseView> self(this);
  const QPointer<BaseViewController> next(controller);
  const QPointer<BaseViewController> attached(d->controller.get());
  const auto shared = Taren::Objects::adoptShared(controller);
  const QPointer<BaseView> former = controller ? controller->getView() : nullptr;
  if (former)
    Presentation::of(*former)->controllerWillChange(*former);
  if (self && attached == d->controller.get())
    Presentation::of(*this)->controllerWillChange(*this);
  const bool lives = self && (!controller || next);
  if (!lives || attached != d->controller.get() || (next && next->getView() != former)) {
    if (lives) // what heard of it attached others
      setViewController(next);
    for (const QPointer<BaseView>& view : {former, self}) {
      if (view)
        Presentation::of(*view)->controllerChanged(*view);
    }
    return;
  }

  const auto before = std::exchange(d->controller, shared);
  ControllerInUse::handOver(*d, before);
  const QPointer<BaseViewController> previous(before.get());
  if (previous)
    previous->forgetView(this);
  if (next)
    next->takeView(this);
  const auto presentation = d->presentation;
  presentation->controllerChanged(*this);
  if (former && former != self && former->d->controller.get() == next)
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

void BaseView::deleteSafely() {
  if (ViewsInUse::any())
    deleteLater();
  else
    delete this;
}

void BaseView::showEvent(QShowEvent* event) {
  const QPointer<BaseView> self(this);
  const EventScope scope(*this, *d);
  d->shown = true;
  if (std::exchange(d->keptUnmapped, false))
    setAttribute(Qt::WA_DontShowOnScreen, false);
  if (hideAgain(*this))
    return;
  const bool leavesFocus = std::exchange(d->focusElsewhere, false) && window()->focusWidget();
  const bool takesFocus = !event->spontaneous() && !leavesFocus;
  Presentation::of(*this)->willShow(*this, takesFocus);
  if (!self || !isVisible()) // what heard of it hides the view again
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
    const QPointer<BaseViewController> loaded(controller.get());
    controller->viewDidLoad();
    if (BaseView* const other = loaded ? loaded->getView() : nullptr; other && other != self)
      Presentation::of(*other)->didLoad(*other);
  }
}

void BaseView::hideEvent(QHideEvent* event) {
  if (!d->shown && !testAttribute(Qt::WA_WState_Created)) // Qt 6.8 tells of what was never seen too
    return QWidget::hideEvent(event);
  const QPointer<BaseView> self(this);
  const EventScope scope(*this, *d);
  const bool minimised = event->spontaneous();
  d->shown &= minimised;
  const bool hadFocus = !minimised && holdsFocus(*this);
  if (hadFocus)
    Presentation::of(*this)->rememberFocus(*this);
  Presentation::of(*this)->willHide(*this, minimised);
  if (!self)
    return;
  if (!minimised)
    keepUnmapped(*this, *d);
  d->forgetClick();
  QWidget::hideEvent(event);
  if (!minimised && isVisible()) // what heard of it shows the view again
    return;
  setMouseTracking(false);
  setAcceptDrops(false);
  if (minimised)
    return;
  d->focusElsewhere = isHiddenByPlace(*this) && !hadFocus;
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
