// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/core/notification_types.h>

#include <QByteArray>
#include <QPointer>
#include <QString>

class QWidget;

namespace Vela::UiBase {

/// Everything a NotificationBar needs to know of one notification. A plain value; fill in what matters:
///
/// @code
/// Vela::UiBase::Notification notification;
/// notification.message = tr("The texture photo12.jpg is missing.");
/// notification.severity = Vela::UiBase::NotificationWarning;
/// notification.actionText = tr("Locate…");
/// notification.receiver = this;
/// notification.member = SLOT(locateTexture());
/// notifications->showNotification(notification);
/// @endcode
struct Notification {
  /// Plain text, shown as it is; line breaks are kept.
  QString message;
  /// A widget shown in place of the message. The bar takes it over and deletes it when the notification ends.
  QWidget* content = nullptr;
  ENotificationSeverity severity = NotificationInfo;
  ENotificationFadeOption fade = FadeInAndOut;
  /// Milliseconds for which it can be seen; 0 or less: until it is closed or replaced.
  int durationMs = 5000;
  /// Whether the user can close it, with a button or with Escape.
  bool closable = true;
  /// Text of the action button; "Details" when it is empty. There is a button only with a receiver.
  QString actionText;
  /// Called when the action button is pressed. May die at any time: the button goes with it.
  QPointer<QObject> receiver;
  /// What is called, without arguments, in the form of SLOT() or SIGNAL().
  QByteArray member;
};

} // namespace Vela::UiBase
