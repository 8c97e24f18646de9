// SPDX-License-Identifier: MIT
#include "notification_bar_p.h"

#include <ui_base/notifications/notification_button.h>
#include <vlk_common_res/styles.h>

#include <QAccessible>
#include <QApplication>
#include <QGraphicsOpacityEffect>

#include <algorithm>
#include <cmath>
#include <utility>

namespace Vela::UiBase {

NotificationBarPrivate::NotificationBarPrivate(NotificationBar* owner)
    : bar(owner),
      look(NotificationLook::of(NotificationInfo)),
      fadeDuration(NotificationBar::defaultFadeDuration()) {
  buildParts();
  connect(&clock, &Countdown::finished, this, &NotificationBarPrivate::finish);
  connect(&m_fade, &QVariantAnimation::valueChanged, this,
          [this](const QVariant& value) { setOpacity(value.toDouble()); });
  connect(&m_fade, &QVariantAnimation::finished, this, [this] {
    if (m_leaving)
      afterLeaving();
  });
  connect(qApp, &QApplication::focusChanged, this, &NotificationBarPrivate::onFocusChanged);
  connect(&Vela::Resource::Styles::Instance(), &Vela::Resource::Styles::changed, this,
          &NotificationBarPrivate::applyLook);
}

// --- the course of a notification

quint64 NotificationBarPrivate::accept(const Notification& notification) {
  const QWidget* content = notification.content;
  const bool isNothing = !content && notification.message.isEmpty();
  if (isNothing ||
      (content && (content == bar || content->isAncestorOf(bar) || content->parentWidget() == bar)))
    return 0;
  return post(makeEntry(notification));
}

NotificationQueue::Entry NotificationBarPrivate::makeEntry(const Notification& notification) {
  auto entry = std::make_unique<NotificationEntry>();
  entry->message = notification.message;
  entry->hasContent = notification.content != nullptr;
  entry->content = notification.content;
  entry->severity = notification.severity;
  entry->fade = notification.fade;
  entry->remainingMs = notification.durationMs;
  entry->closable = notification.closable;
  entry->receiver = notification.receiver;
  entry->member = notification.member;
  if (entry->receiver && !entry->member.isEmpty()) {
    auto action = std::make_unique<QAction>(notification.actionText);
    if (connect(action.get(), SIGNAL(triggered()), entry->receiver, entry->member.constData()))
      entry->action = std::move(action);
  }
  if (QWidget* content = notification.content) {
    content->setParent(bar);
    content->hide();
  }
  return entry;
}

quint64 NotificationBarPrivate::post(NotificationQueue::Entry entry) {
  quint64 shownBefore = 0;
  if (NotificationEntry* current = queue.current()) {
    shownBefore = current->id;
    if (clock.isRunning())
      current->remainingMs = std::max(1, clock.remaining());
  }
  const QPointer<QWidget> content = entry->content;
  NotificationQueue::Entries dropped;
  const quint64 id = queue.post(std::move(entry), dropped);
  if (content)
    // Queued: a layout must not be computed while one of its widgets is half gone.
    connect(
        content, &QObject::destroyed, this, [this, id] { withdraw(id); }, Qt::QueuedConnection);

  const QPointer<NotificationBarPrivate> alive(this);
  if (id == shownBefore)
    restartClock();
  else if (queue.current()->id != shownBefore)
    present();
  if (alive)
    announceEnded(dropped);
  return id;
}

void NotificationBarPrivate::present() {
  NotificationEntry& entry = *queue.current();
  const quint64 id = entry.id;
  fillParts(entry);
  m_leaving.reset();
  bar->show();
  if (entry.fade == FadeOutOnly || !bar->isVisible()) {
    m_fade.stop();
    setOpacity(1.0);
  } else {
    fadeTo(1.0);
  }
  restartClock();
  QAccessibleEvent alert(bar, QAccessible::Alert);
  QAccessible::updateAccessibility(&alert);
  Q_EMIT bar->notificationShown(id);
}

void NotificationBarPrivate::restartClock() {
  const NotificationEntry& entry = *queue.current();
  if (entry.isEndless())
    clock.stop();
  else
    clock.start(entry.remainingMs);
  updatePaused();
}

void NotificationBarPrivate::finish() {
  if (!queue.current())
    return;
  clock.stop();
  m_leaving = queue.takeCurrent();
  const NotificationEntry* const leaving = m_leaving.get();
  const bool isGone = leaving->hasContent && !leaving->content;
  const bool fadesOut =
      leaving->fade != FadeInOnly && fadeDuration > 0 && m_opacity > 0.0 && !isGone && bar->isVisible();
  if (fadesOut)
    fadeTo(0.0);

  const QPointer<NotificationBarPrivate> alive(this);
  Q_EMIT bar->notificationEnded(leaving->id);
  // A receiver of the signal may have shown the next one already.
  if (alive && !fadesOut && m_leaving.get() == leaving)
    afterLeaving();
}

void NotificationBarPrivate::afterLeaving() {
  m_leaving.reset();
  if (queue.advance()) {
    present();
    return;
  }
  giveFocusBack();
  bar->hide();
  showContent(nullptr);
  m_fade.stop();
  setOpacity(0.0);
}

bool NotificationBarPrivate::withdraw(quint64 id) {
  if (const NotificationEntry* current = queue.current(); current && current->id == id) {
    finish();
    return true;
  }
  NotificationQueue::Entries taken;
  taken.push_back(queue.takeWaiting(id));
  if (!taken.front())
    return false;
  announceEnded(taken);
  return true;
}

void NotificationBarPrivate::withdrawInfo() {
  const QPointer<NotificationBarPrivate> alive(this);
  announceEnded(queue.takeWaiting(NotificationInfo));
  if (alive && queue.current() && queue.current()->severity == NotificationInfo)
    finish();
}

void NotificationBarPrivate::withdrawAll() {
  const QPointer<NotificationBarPrivate> alive(this);
  announceEnded(queue.takeAllWaiting());
  if (alive && queue.current())
    finish();
}

void NotificationBarPrivate::runAction() {
  NotificationEntry* current = queue.current();
  if (!current || !current->hasLiveAction())
    return;
  // Ended first: what the member shows must not be ended in its place. The bar may die on the way.
  const std::unique_ptr<QAction> action = std::move(current->action);
  finish();
  action->trigger();
}

void NotificationBarPrivate::announceEnded(const NotificationQueue::Entries& entries) {
  const QPointer<NotificationBar> alive(bar);
  for (const auto& entry : entries) {
    if (alive)
      Q_EMIT alive->notificationEnded(entry->id);
  }
}

void NotificationBarPrivate::updatePaused() {
  clock.setPaused(hovered || !bar->isVisible() || hasFocusInside());
}

// --- fading

void NotificationBarPrivate::fadeTo(double opacity) {
  m_fade.stop();
  const double way = std::abs(opacity - m_opacity);
  if (fadeDuration <= 0 || way <= 0.0) {
    setOpacity(opacity);
    return;
  }
  m_fade.setStartValue(m_opacity);
  m_fade.setEndValue(opacity);
  m_fade.setDuration(std::max(1, static_cast<int>(way * fadeDuration)));
  m_fade.start();
}

void NotificationBarPrivate::setOpacity(double opacity) {
  m_opacity = opacity;
  // An effect draws through a pixmap: only while it is needed.
  if (opacity >= 1.0) {
    bar->setGraphicsEffect(nullptr);
    return;
  }
  auto* effect = qobject_cast<QGraphicsOpacityEffect*>(bar->graphicsEffect());
  if (!effect) {
    effect = new QGraphicsOpacityEffect;
    bar->setGraphicsEffect(effect);
  }
  effect->setOpacity(opacity);
}

// --- the keyboard focus

bool NotificationBarPrivate::hasFocusInside() const {
  const QWidget* focus = QApplication::focusWidget();
  return focus && (focus == bar || bar->isAncestorOf(focus));
}

void NotificationBarPrivate::onFocusChanged(QWidget* old, QWidget* now) {
  const bool isInside = now && bar->isAncestorOf(now);
  if (isInside && old && !bar->isAncestorOf(old))
    m_focusBack = old;
  updatePaused();
}

void NotificationBarPrivate::giveFocusBack() {
  if (!hasFocusInside())
    return;
  if (m_focusBack && m_focusBack->isVisible() && m_focusBack->isEnabled())
    m_focusBack->setFocus(Qt::OtherFocusReason);
  else
    QApplication::focusWidget()->clearFocus();
}

} // namespace Vela::UiBase
