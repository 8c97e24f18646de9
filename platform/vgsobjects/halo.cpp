// SPDX-License-Identifier: MIT
#include "halo.h"

#include <QFontMetricsF>
#include <QPainterPath>

namespace Vela::Graphics {

void drawText(const AnnotationDevice& device, const QPointF& middle, const QString& text,
              const QColor& color) {
  const PainterState state(device.painter());
  QPainter& painter = device.painter();
  QFont font = painter.font();
  font.setBold(true);
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
