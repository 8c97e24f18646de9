// SPDX-License-Identifier: MIT
#include "notification_look.h"

#include <vlk_common_res/styles.h>

#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>

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

Vela::Resource::ESeverity styleSeverity(ENotificationSeverity severity) {
  switch (severity) {
  case NotificationWarning:
    return Vela::Resource::SeverityWarning;
  case NotificationError:
    return Vela::Resource::SeverityError;
  case NotificationInfo:
    break;
  }
  return Vela::Resource::SeverityInfo;
}

double luminance(const QColor& color) {
  const auto linear = [](double channel) {
    return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

double contrast(const QColor& a, const QColor& b) {
  const double first = luminance(a) + 0.05;
  const double second = luminance(b) + 0.05;
  return std::max(first, second) / std::min(first, second);
}

/// A vivid colour of the hue of `color`, as dark or as light as it must be to be read on `background`.
QColor legibleOn(const QColor& background, const QColor& color) {
  constexpr double readable = 5.0;
  constexpr float vivid = 0.85F;
  constexpr float step = 0.02F;
  const bool darker = luminance(background) > 0.3;
  QColor result = color;
  const float hue = result.hslHueF();
  const float saturation = std::max(vivid, result.hslSaturationF());
  float lightness = result.lightnessF();
  while (contrast(result, background) < readable && lightness > step && lightness < 1.0F - step) {
    lightness += darker ? -step : step;
    result = QColor::fromHslF(hue, saturation, lightness);
  }
  return result.toRgb();
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
  const Vela::Resource::NotificationColors colors =
      Vela::Resource::Styles::Instance().ColorsNotification(styleSeverity(severity));
  return {colors.background, colors.border, colors.text, legibleOn(colors.background, colors.border)};
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
