// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/notifications/notification.h>

#include <QAction>
#include <QPointer>
#include <QWidget>

#include <memory>

namespace Vela::UiBase {

/// A notification accepted by a bar: shown or waiting. Owns the content and the call of the action.
struct NotificationEntry {
  NotificationEntry() = default;
  Q_DISABLE_COPY_MOVE(NotificationEntry)
  ~NotificationEntry() {
    // The end of a notification is often the wish of its own content, whose event is still being handled.
    if (content)
      content->deleteLater();
  }

  bool isEndless() const { return remainingMs <= 0; }
  bool hasLiveAction() const { return action && receiver; }

  quint64 id = 0;
  QString message;
  QPointer<QWidget> content;
  bool hasContent = false;
  ENotificationSeverity severity = NotificationInfo;
  ENotificationFadeOption fade = FadeInAndOut;
  int remainingMs = 0;
  bool closable = true;
  QPointer<QObject> receiver;
  QByteArray member;
  /// Connected to the receiver's member; null without one.
  std::unique_ptr<QAction> action;
};

} // namespace Vela::UiBase
