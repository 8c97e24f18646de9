// SPDX-License-Identifier: MIT
#include "notification_bar.h"

#include "notification_bar_p.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>

namespace Vela::UiBase {

namespace {

int newBarsFadeDuration = 180;

QAccessibleInterface* makeAlert(const QString& className, QObject* object) {
  if (className != QLatin1String(NotificationBar::staticMetaObject.className()) || !object->isWidgetType())
    return nullptr;
  return new QAccessibleWidget(static_cast<QWidget*>(object), QAccessible::AlertMessage);
}

void installAlertFactory() {
  [[maybe_unused]] static const bool once = [] {
    QAccessible::installFactory(makeAlert);
    return true;
  }();
}

Notification plainNotification(ENotificationFadeOption fade, int durationMs, bool closable, QObject* receiver,
                               const char* member) {
  Notification notification;
  notification.fade = fade;
  notification.durationMs = durationMs;
  notification.closable = closable;
  notification.receiver = receiver;
  notification.member = member;
  return notification;
}

} // namespace

NotificationBar::NotificationBar(QWidget* parent)
    : QWidget(parent), d(std::make_unique<NotificationBarPrivate>(this)) {
  installAlertFactory();
  // Nor does a drag, a turn of the wheel or a context menu reach what lies behind the bar.
  setAttribute(Qt::WA_NoMousePropagation);
  // An explicit hide keeps the bar from being shown together with its parent.
  hide();
}

NotificationBar::~NotificationBar() = default;

quint64 NotificationBar::showNotification(const QString& message, ENotificationFadeOption fade,
                                          int durationMs, bool closable, QObject* receiver,
                                          const char* member) {
  Notification notification = plainNotification(fade, durationMs, closable, receiver, member);
  notification.message = message;
  return d->accept(notification);
}

quint64 NotificationBar::showNotification(QWidget* content, ENotificationFadeOption fade, int durationMs,
                                          bool closable, QObject* receiver, const char* member) {
  Notification notification = plainNotification(fade, durationMs, closable, receiver, member);
  notification.content = content;
  return d->accept(notification);
}

quint64 NotificationBar::showNotification(const Notification& notification) {
  return d->accept(notification);
}

void NotificationBar::hideNotification() { d->withdrawInfo(); }

bool NotificationBar::hideNotification(quint64 id) { return d->withdraw(id); }

void NotificationBar::clearNotifications() { d->withdrawAll(); }

bool NotificationBar::isNotificationShowing() const { return d->queue.current() != nullptr; }

quint64 NotificationBar::currentNotification() const {
  const NotificationEntry* current = d->queue.current();
  return current ? current->id : 0;
}

int NotificationBar::waitingCount() const { return d->queue.waitingCount(); }

int NotificationBar::queueLimit() const { return d->queue.limit(); }

void NotificationBar::setQueueLimit(int limit) { d->queue.setLimit(limit); }

int NotificationBar::fadeDuration() const { return d->fadeDuration; }

void NotificationBar::setFadeDuration(int milliseconds) { d->fadeDuration = std::max(0, milliseconds); }

int NotificationBar::defaultFadeDuration() { return newBarsFadeDuration; }

void NotificationBar::setDefaultFadeDuration(int milliseconds) {
  newBarsFadeDuration = std::max(0, milliseconds);
}

void NotificationBar::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::LanguageChange)
    d->retranslate();
}

void NotificationBar::enterEvent(QEnterEvent*) {
  d->hovered = true;
  d->updatePaused();
}

void NotificationBar::leaveEvent(QEvent*) {
  d->hovered = false;
  d->updatePaused();
}

void NotificationBar::showEvent(QShowEvent*) { d->updatePaused(); }

void NotificationBar::hideEvent(QHideEvent*) {
  d->hovered = false;
  d->updatePaused();
}

void NotificationBar::keyPressEvent(QKeyEvent* event) {
  const NotificationEntry* current = d->queue.current();
  if (event->key() == Qt::Key_Escape && current && current->closable)
    d->finish();
  else
    QWidget::keyPressEvent(event);
}

void NotificationBar::mousePressEvent(QMouseEvent* event) {
  // A click on the notification is not a click on what lies behind it.
  event->accept();
}

void NotificationBar::mouseReleaseEvent(QMouseEvent* event) { event->accept(); }

void NotificationBar::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  constexpr int shadow = NotificationMetrics::ShadowExtent;
  paintNotificationBody(painter, QRectF(rect()).adjusted(shadow, shadow, -shadow, -shadow), d->look);
}

} // namespace Vela::UiBase
