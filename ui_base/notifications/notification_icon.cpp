// SPDX-License-Identifier: MIT
#include "notification_icon.h"

#include <QPainter>

namespace Vela::UiBase {

NotificationIcon::NotificationIcon(QWidget* parent) : QWidget(parent) {
  setFixedSize(NotificationMetrics::IconSize, NotificationMetrics::IconSize);
}

void NotificationIcon::setSeverity(ENotificationSeverity severity, const NotificationLook& look) {
  m_severity = severity;
  m_look = look;
  update();
}

void NotificationIcon::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  paintSeverityIcon(painter, rect(), m_severity, m_look);
}

} // namespace Vela::UiBase
