// SPDX-License-Identifier: MIT
#include "base_view_controller.h"

#include "base_view.h"

#include <ui_base/notifications/floating_widget.h>
#include <ui_base/notifications/notification_bar.h>
#include <ui_base/tooltips/tooltip_manager.h>
#include <vlk_app_service/application_service.h>

#include <QLayout>
#include <QPointer>

#include <utility>

template class Taren::Objects::SharedObject<Vela::UiBase::BaseViewController>;

namespace Vela::UiBase {

class BaseViewControllerPrivate {
public:
  QPointer<BaseView> view;
  QPointer<BaseViewController> presenter;
  ETransitionDirection transitionDirection = NoTransition;
  QPointer<NotificationBar> notificationBar;
  QPointer<FloatingWidget> notificationHost; // carries the bar over the view
  bool loaded = false;
  bool disappeared = false; // hidden, or covered by a presented view
  QList<BaseView*> owners;  // the views that hold the controller; the last one is its view
  std::weak_ptr<Services::ShutdownProtocol> registration;
};

namespace {

Services::ApplicationService& applicationService() { return Services::ApplicationService::GetInstance(); }

bool isLaidOut(const QWidget& widget) {
  const QWidget* const parent = widget.parentWidget();
  return widget.layout() || (parent && parent->layout() && parent->layout()->indexOf(&widget) >= 0);
}

// Milliseconds in which a message of that severity can be read and acted upon.
int readingTime(ENotificationSeverity severity) { return severity == NotificationInfo ? 3000 : 10000; }

} // namespace

BaseViewController::BaseViewController() : d(std::make_unique<BaseViewControllerPrivate>()) {}

BaseViewController::BaseViewController(BaseView* view) : BaseViewController() { setView(view); }

BaseViewController::~BaseViewController() {
  beginDestruction();
  if (const auto registered = d->registration.lock()) // deleted by hand, and still held elsewhere
    applicationService().removeShutdownProtocolDelegate(registered);
  const QPointer<BaseView> view = std::exchange(d->view, nullptr);
  for (BaseView* const owner : std::as_const(d->owners))
    owner->dropViewController(this);
  if (view && !view->parentWidget())
    delete view.data();
}

void BaseViewController::setView(BaseView* view) {
  if (view)
    view->setViewController(this);
  else if (d->view)
    d->view->setViewController(nullptr);
}

void BaseViewController::takeView(BaseView* view) {
  d->owners.append(view);
  d->view = view;
  dropNotifications(); // which lie over the former view
}

void BaseViewController::letGoOfView(BaseView* view) {
  d->owners.removeOne(view);
  if (d->view != view)
    return;
  d->view = nullptr;
  dropNotifications();
  if (d->loaded)
    viewWasLost();
  endPresentation();
}

void BaseViewController::viewWasLost() { leaveShutdown(); }

// However the view went, the presenter's is no longer covered.
void BaseViewController::endPresentation() {
  const QPointer<BaseViewController> presenter = std::exchange(d->presenter, nullptr);
  d->transitionDirection = NoTransition;
  if (presenter && presenter->getView())
    presenter->viewWillAppear();
}

BaseView* BaseViewController::getView() const { return d->view; }

bool BaseViewController::isLoaded() const { return d->loaded; }

BaseViewController* BaseViewController::presenter() const { return d->presenter; }

ETransitionDirection BaseViewController::transitionDirection() const { return d->transitionDirection; }

void BaseViewController::viewDidLoad() {
  d->loaded = true;
  const auto self = sharedOrEmpty();
  d->registration = self;
  applicationService().addShutdownProtocolDelegate(self);
}

void BaseViewController::leaveShutdown() {
  d->loaded = false;
  applicationService().removeShutdownProtocolDelegate(sharedOrEmpty());
}

bool BaseViewController::viewWillClose() {
  leaveShutdown();
  return true;
}

void BaseViewController::viewWillAppear() {
  d->disappeared = false;
  if (d->notificationHost)
    d->notificationHost->show();
  TooltipManager::GetInstance().onViewVisibilityChange(true);
}

void BaseViewController::viewWillDisappear() {
  d->disappeared = true;
  if (d->notificationHost)
    d->notificationHost->hide();
  TooltipManager::GetInstance().onViewVisibilityChange(false);
}

void BaseViewController::viewDidResize(QResizeEvent*) {}

void BaseViewController::viewDidMove(QMoveEvent*) {}

void BaseViewController::show() {
  if (d->view)
    d->view->show();
}

void BaseViewController::hide() {
  if (d->view)
    d->view->hide();
}

bool BaseViewController::close() { return d->view && d->view->close(); }

bool BaseViewController::presentViewController(BaseViewController* controller,
                                               ETransitionDirection direction) {
  if (!controller || controller == this)
    return false;
  if (auto* const delegate = getDelegate();
      delegate && delegate->presentViewController(controller, direction))
    return true;
  const QPointer<BaseView> ownView = d->view;
  const QPointer<BaseView> shownView = controller->getView();
  if (!ownView || !shownView || shownView->isAncestorOf(ownView))
    return false;

  if (auto* const former = controller->presenter(); former && former != this && former->getView()) {
    former->getView()->removeEventFilter(shownView);
    former->viewWillAppear();
  }
  shownView->setParent(ownView);
  shownView->setGeometry(ownView->rect());
  shownView->raise();
  ownView->installEventFilter(shownView);
  controller->d->presenter = this;
  controller->d->transitionDirection = direction;
  viewWillDisappear();
  if (shownView)
    shownView->show();
  if (ownView && !isLaidOut(*ownView))
    ownView->adjustSize();
  return true;
}

bool BaseViewController::dismissViewController() {
  if (auto* const delegate = getDelegate(); delegate && delegate->dismissViewController())
    return true;
  const auto self = sharedOrEmpty(); // the view may be its last other owner
  if (BaseView* const presenterView = d->presenter ? d->presenter->getView() : nullptr;
      presenterView && d->view)
    presenterView->removeEventFilter(d->view);
  endPresentation();
  close();
  return true;
}

bool BaseViewController::initializeNotificationBar() {
  if (!d->view)
    return false;
  if (d->notificationBar && d->notificationHost)
    return true;
  d->notificationBar = new NotificationBar(d->view);
  d->notificationHost = new FloatingWidget(d->view);
  d->notificationHost->addWidget(d->notificationBar);
  d->notificationHost->setVisible(!d->disappeared);
  return true;
}

void BaseViewController::dropNotifications() {
  d->notificationBar = nullptr; // a child of the host
  const QPointer<FloatingWidget> host = std::exchange(d->notificationHost, nullptr);
  if (!host)
    return;
  host->hide();
  host->deleteLater(); // it may be a button of the bar that led here
}

void BaseViewController::showNotification(const QString& message, ENotificationFadeOption fade,
                                          int durationMs, bool closable, QObject* receiver,
                                          const char* member) {
  if (initializeNotificationBar())
    d->notificationBar->showNotification(message, fade, durationMs, closable, receiver, member);
}

void BaseViewController::showNotification(QWidget* content, ENotificationFadeOption fade, int durationMs,
                                          bool closable, QObject* receiver, const char* member) {
  if (initializeNotificationBar())
    d->notificationBar->showNotification(content, fade, durationMs, closable, receiver, member);
}

void BaseViewController::showNotification(const QString& message, ENotificationSeverity severity) {
  if (!initializeNotificationBar())
    return;
  Notification notification;
  notification.message = message;
  notification.severity = severity;
  notification.durationMs = readingTime(severity);
  d->notificationBar->showNotification(notification);
}

void BaseViewController::hideNotification() {
  if (d->notificationBar)
    d->notificationBar->hideNotification();
}

bool BaseViewController::isNotificationShowing() const {
  return d->notificationBar && d->notificationBar->isNotificationShowing();
}

} // namespace Vela::UiBase
