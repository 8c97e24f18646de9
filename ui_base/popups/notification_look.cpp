// SPDX-License-Identifier: MIT
#include "notification_look.h"

#include <QGuiApplication>
#include <QPainter>
#include <QPainterPath>
#include <QPalette>

namespace Vela::UiBase {

namespace {

void paintShadow(QPainter& painter, const QRectF& body) {
  using namespace NotificationMetrics;
  painter.setPen(Qt::NoPen);
  for (int step = ShadowExtent; step > 0; --step) {
    // Each ring lies over all wider ones: the shares add up to a shadow that falls off smoothly.
    painter.setBrush(QColor(0, 0, 0, 1 + ShadowExtent - step));
    const double spread = step - ShadowOffset;
    painter.drawRoundedRect(body.adjusted(-spread, -spread, spread, spread).translated(0, ShadowOffset),
                            CornerRadius + spread, CornerRadius + spread);
  }
}

QPainterPath trianglePath(const QRectF& square) {
  const double inset = square.width() * 0.09;
  QPainterPath path;
  path.moveTo(square.center().x(), square.top() + inset);
  path.lineTo(square.right() - inset * 0.6, square.bottom() - inset * 1.4);
  path.lineTo(square.left() + inset * 0.6, square.bottom() - inset * 1.4);
  path.closeSubpath();
  return path;
}

} // namespace

NotificationLook NotificationLook::of(ENotificationSeverity severity) {
  const bool dark = QGuiApplication::palette().color(QPalette::Window).lightness() < 128;
  switch (severity) {
  case NotificationError:
    return dark ? NotificationLook{QColor(0x3b2426), QColor(0x7a3d40), QColor(0xf6e6e6), QColor(0xff8a80)}
                : NotificationLook{QColor(0xfdf0ef), QColor(0xecb8b4), QColor(0x3d1412), QColor(0xc0271b)};
  case NotificationWarning:
    return dark ? NotificationLook{QColor(0x382f1c), QColor(0x705a26), QColor(0xf5eddb), QColor(0xf2bd4b)}
                : NotificationLook{QColor(0xfff8e5), QColor(0xe9cf8e), QColor(0x3b2c05), QColor(0x9a6400)};
  case NotificationInfo:
    break;
  }
  return dark ? NotificationLook{QColor(0x2b3038), QColor(0x475061), QColor(0xe9edf3), QColor(0x76b5ff)}
              : NotificationLook{QColor(0xffffff), QColor(0xcfd6e0), QColor(0x1d2530), QColor(0x1a66c2)};
}

void paintNotificationBody(QPainter& painter, const QRectF& body, const NotificationLook& look) {
  painter.setRenderHint(QPainter::Antialiasing);
  paintShadow(painter, body);
  painter.setPen(QPen(look.border, 1.0));
  painter.setBrush(look.background);
  const double radius = NotificationMetrics::CornerRadius;
  painter.drawRoundedRect(body.adjusted(0.5, 0.5, -0.5, -0.5), radius, radius);
}

void paintSeverityIcon(QPainter& painter, const QRectF& square, ENotificationSeverity severity,
                       const NotificationLook& look) {
  painter.setRenderHint(QPainter::Antialiasing);
  const double unit = square.width() / 20.0;
  const QPointF centre = square.center();
  const QPen mark(look.background, 2.2 * unit, Qt::SolidLine, Qt::RoundCap);

  painter.setPen(QPen(look.accent, 2.0 * unit, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.setBrush(look.accent);
  if (severity == NotificationWarning)
    painter.drawPath(trianglePath(square));
  else
    painter.drawEllipse(centre, 8.0 * unit, 8.0 * unit);

  painter.setPen(mark);
  const auto at = [&](double x, double y) { return centre + QPointF(x * unit, y * unit); };
  switch (severity) {
  case NotificationInfo:
    painter.drawPoint(at(0, -4));
    painter.drawLine(at(0, -0.3), at(0, 4.2));
    break;
  case NotificationWarning:
    painter.drawLine(at(0, -2.2), at(0, 1.8));
    painter.drawPoint(at(0, 5));
    break;
  case NotificationError:
    painter.drawLine(at(-3, -3), at(3, 3));
    painter.drawLine(at(3, -3), at(-3, 3));
    break;
  }
}

} // namespace Vela::UiBase
