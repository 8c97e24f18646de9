// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/core/notification_types.h>

#include <QColor>
#include <QRectF>

class QPainter;

namespace Vela::UiBase {

/// The colours of a notification in the palette that is in use.
struct NotificationLook {
  QColor background;
  QColor border;
  QColor text;
  /// Icon and action button.
  QColor accent;

  static NotificationLook of(ENotificationSeverity severity);
};

/// Sizes of a notification in pixels.
namespace NotificationMetrics {
inline constexpr int ShadowExtent = 8;
inline constexpr int ShadowOffset = 2;
inline constexpr int CornerRadius = 8;
inline constexpr int IconSize = 20;
inline constexpr int MaximumTextWidth = 440;
inline constexpr int MinimumTextWidth = 48;
inline constexpr int MaximumLines = 4;
} // namespace NotificationMetrics

/// Paints the rounded body with its border and a soft shadow around it.
void paintNotificationBody(QPainter& painter, const QRectF& body, const NotificationLook& look);

/// Paints the sign of the severity into a square.
void paintSeverityIcon(QPainter& painter, const QRectF& square, ENotificationSeverity severity,
                       const NotificationLook& look);

} // namespace Vela::UiBase
