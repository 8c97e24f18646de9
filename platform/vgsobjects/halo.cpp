// SPDX-License-Identifier: MIT
#include "halo.h"

#include <QFontMetricsF>
#include <QPainterPath>

namespace Vela::Graphics {

namespace {

QFont textFont(const AnnotationDevice& device) {
  QFont font = device.painter().font();
  font.setBold(true);
  return font;
}

} // namespace

QSizeF textSize(const AnnotationDevice& device, const QString& text) {
  const QFontMetricsF metrics(textFont(device));
  return QSizeF(metrics.horizontalAdvance(text), metrics.capHeight()) + 2 * QSizeF(HaloWidth, HaloWidth);
}

void drawText(const AnnotationDevice& device, const QPointF& middle, const QString& text,
              const QColor& color) {
  const PainterState state(device.painter());
  QPainter& painter = device.painter();
  const QFont font = textFont(device);
  const QFontMetricsF metrics(font);
  const QPointF baseline(middle.x() - metrics.horizontalAdvance(text) / 2,
                         middle.y() + metrics.capHeight() / 2);
  QPainterPath outline;
  outline.addText(baseline, font, text);
  painter.strokePath(outline,
                     QPen(device.halo(), 2 * HaloWidth + 1, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.fillPath(outline, color);
}

} // namespace Vela::Graphics
