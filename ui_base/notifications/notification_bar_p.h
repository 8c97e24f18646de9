// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/notifications/countdown.h>
#include <ui_base/notifications/notification_bar.h>
#include <ui_base/notifications/notification_look.h>
#include <ui_base/notifications/notification_queue.h>

#include <QObject>
#include <QPointer>
#include <QVariantAnimation>

class QHBoxLayout;

namespace Vela::UiBase {

class NotificationButton;
class NotificationIcon;
class NotificationLabel;

/// The state of a NotificationBar. Two layers: the course of a notification (post, present, finish, fade) and
/// the parts it is shown with.
class NotificationBarPrivate : public QObject {
  Q_OBJECT

public:
  explicit NotificationBarPrivate(NotificationBar* owner);

  quint64 accept(const Notification& notification);
  bool withdraw(quint64 id);
  void withdrawInfo();
  void withdrawAll();
  void finish();
  void runAction();

  void updatePaused();
  void retranslate();
  void applyLook();

  NotificationBar* const bar;
  NotificationQueue queue;
  Countdown clock;
  NotificationLook look;
  int fadeDuration;
  bool hovered = false;

private:
  NotificationQueue::Entry makeEntry(const Notification& notification);
  quint64 post(NotificationQueue::Entry entry);
  void present();
  void restartClock();
  void announceEnded(const NotificationQueue::Entries& entries);

  void fadeTo(double opacity);
  void setOpacity(double opacity);
  void afterLeaving();

  void buildParts();
  void fillParts(const NotificationEntry& entry);
  void showContent(QWidget* content);
  void watchReceiver(const NotificationEntry& entry);
  void describe(const NotificationEntry& entry);
  void onFocusChanged(QWidget* old, QWidget* now);
  void giveFocusBack();
  bool hasFocusInside() const;

  QVariantAnimation m_fade;
  double m_opacity = 0.0;
  NotificationQueue::Entry m_leaving; // keeps the content while it fades out

  QHBoxLayout* m_layout = nullptr;
  NotificationIcon* m_icon = nullptr;
  NotificationLabel* m_label = nullptr;
  NotificationButton* m_actionButton = nullptr;
  NotificationButton* m_closeButton = nullptr;
  QPointer<QWidget> m_content;
  QPointer<QWidget> m_focusBack;
  QMetaObject::Connection m_receiverWatch;
};

} // namespace Vela::UiBase
