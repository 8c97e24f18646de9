// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/notifications/notification_look.h>

#include <QWidget>

namespace Vela::UiBase {

/// The sign of a severity in front of a notification.
class NotificationIcon : public QWidget {
  Q_OBJECT

public:
  explicit NotificationIcon(QWidget* parent = nullptr);

  void setSeverity(ENotificationSeverity severity, const NotificationLook& look);

protected:
  void paintEvent(QPaintEvent* event) override;

private:
  ENotificationSeverity m_severity = NotificationInfo;
  NotificationLook m_look;
};

} // namespace Vela::UiBase
