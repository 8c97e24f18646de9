// SPDX-License-Identifier: MIT
#include "rectangle_object.h"

#include "halo.h"

namespace Vela::Graphics {

RectangleObject::RectangleObject(const QRectF& rectangle) : m_rectangle(rectangle) {}

RectangleObject::~RectangleObject() = default;

void RectangleObject::draw(const AnnotationDevice& device) const {
  const PainterState state(device.painter());
  QPainter& painter = device.painter();
  QColor fill = colorOn(device);
  fill.setAlpha(40);
  painter.fillRect(m_rectangle, fill);
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(device.halo(), 1 + HaloWidth));
  painter.drawRect(m_rectangle);
  painter.setPen(QPen(colorOn(device), 1));
  painter.drawRect(m_rectangle);
}

} // namespace Vela::Graphics
