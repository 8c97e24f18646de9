// SPDX-License-Identifier: MIT
#include "base_view_controller.h"

#include "base_view.h"
#include "presentation.h"
#include "view_notifications.h"

#include <ui_base/notifications/notification_bar.h>
#include <ui_base/tooltips/tooltip_manager.h>
#include <vlk_app_service/application_service.h>

#include <QCoreApplication>
#include <QEvent>
#include <QPointer>

#include <utility>

template class Taren::Objects::SharedObject<Vela::UiBase::BaseViewController>;

namespace Vela::UiBase {

class BaseViewControllerPrivate {
public:
  QPointer<BaseView> view;
  QList<BaseView*> owners; // the views that hold the controller; the last one is its view
  bool loaded = false;
  std::weak_ptr<Services::ShutdownProtocol> registration;
  ViewNotifications notifications;
};

namespace {

Services::ApplicationService& applicationService() { return Services::ApplicationService::GetInstance(); }

// Milliseconds in which a message of that severity can be read and acted upon.
int readingTime(ENotificationSeverity severity) { return severity == NotificationInfo ? 3000 : 10000; }

} // namespace

// Attaching to views

BaseViewController::BaseViewController() : d(std::make_unique<BaseViewControllerPrivate>()) {}

BaseViewController::BaseViewController(BaseView* view) : BaseViewController() { setView(view); }

BaseViewController::~BaseViewController() {
  beginDestruction();
  QCoreApplication::removePostedEvents(this, QEvent::DeferredDelete); // what is called here may run a loop
  if (const auto registered = d->registration.lock()) // deleted by hand, and still held elsewhere
    applicationService().removeShutdownProtocolDelegate(registered);
  const QPointer<BaseView> view = std::exchange(d->view, nullptr);
  d->notifications.drop();
  while (!d->owners.isEmpty())
    d->owners.takeFirst()->dropViewController(this);
  if (view && !view->parentWidget())
    view->deleteSafely();
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
  d->notifications.drop(); // which lie over the former view
  viewChanged(isInReach());
}

void BaseViewController::forgetView(BaseView* view) {
  d->owners.removeOne(view);
  if (d->view != view)
    return;
  d->view = nullptr;
  d->notifications.drop();
  if (m_told == Told::Appeared) // the view died
    m_told = Told::Nothing;
  viewChanged(isInReach());
}

void BaseViewController::viewChanged(bool) {}

void BaseViewController::mouseWasLost() {}

// In the middle of the callback before, the opposite may have been told.
void BaseViewController::reachChanged() {
  d->notifications.setVisible(isInReach());
  viewChanged(isInReach());
}

void BaseViewController::tellIfViewIsLost() {
  if (d->loaded && !d->view)
    viewWasLost();
}

void BaseViewController::viewWasLost() { leaveShutdown(); }

BaseView* BaseViewController::getView() const { return d->view; }

bool BaseViewController::isLoaded() const { return d->loaded; }

// The life of the view

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
  d->notifications.setVisible(true);
  TooltipManager::GetInstance().onViewVisibilityChange(true);
}

void BaseViewController::viewWillDisappear() {
  d->notifications.setVisible(false);
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

// Presenting

BaseViewController* BaseViewController::presenter() const {
  const BaseView* const over = d->view ? Presentation::of(*d->view)->presenterOf(*d->view) : nullptr;
  return over ? over->ownController().get() : nullptr;
}

ETransitionDirection BaseViewController::transitionDirection() const {
  return d->view ? Presentation::of(*d->view)->directionOf(*d->view) : NoTransition;
}

bool BaseViewController::presentViewController(BaseViewController* controller,
                                               ETransitionDirection direction) {
  if (!controller || controller == this)
    return false;
  const QPointer<BaseViewController> self(this);
  const QPointer<BaseViewController> presented(controller);
  if (auto* const delegate = getDelegate();
      delegate && delegate->presentViewController(controller, direction))
    return true;
  BaseView* const over = self ? self->getView() : nullptr;
  BaseView* const view = presented ? presented->getView() : nullptr;
  return over && view && Presentation::present(*over, *view, direction);
}

bool BaseViewController::dismissViewController() {
  const auto held = sharedOrEmpty(); // the view may be its last other owner
  const QPointer<BaseViewController> self(this);
  if (auto* const delegate = getDelegate(); delegate && delegate->dismissViewController())
    return true;
  BaseView* const view = self ? self->getView() : nullptr;
  return !view || Presentation::dismiss(*view);
}

// Notifications

NotificationBar* BaseViewController::initializeNotificationBar() {
  return d->view ? &d->notifications.barOver(*d->view) : nullptr;
}

void BaseViewController::showNotification(const QString& message, ENotificationFadeOption fade,
                                          int durationMs, bool closable, QObject* receiver,
                                          const char* member) {
  if (NotificationBar* const bar = initializeNotificationBar())
    bar->showNotification(message, fade, durationMs, closable, receiver, member);
}

void BaseViewController::showNotification(QWidget* content, ENotificationFadeOption fade, int durationMs,
                                          bool closable, QObject* receiver, const char* member) {
  if (NotificationBar* const bar = initializeNotificationBar())
    bar->showNotification(content, fade, durationMs, closable, receiver, member);
  else if (content)
    content->deleteLater();
}

void BaseViewController::showNotification(const QString& message, ENotificationSeverity severity) {
  NotificationBar* const bar = initializeNotificationBar();
  if (!bar)
    return;
  Notification notification;
  notification.message = message;
  notification.severity = severity;
  notification.durationMs = readingTime(severity);
  bar->showNotification(notification);
}

void BaseViewController::hideNotification() {
  if (NotificationBar* const bar = d->notifications.bar())
    bar->hideNotification();
}

bool BaseViewController::isNotificationShowing() const {
  const NotificationBar* const bar = d->notifications.bar();
  return bar && bar->isNotificationShowing();
}

} // namespace Vela::UiBase
