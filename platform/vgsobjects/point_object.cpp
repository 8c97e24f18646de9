// SPDX-License-Identifier: MIT
#include "point_object.h"

#include "halo.h"

namespace Vela::Graphics {

PointObject::PointObject(const QVector3D& position) : m_position(position) {}

PointObject::~PointObject() = default;

void PointObject::draw(const AnnotationDevice& device) const {
  const auto at = device.project(m_position);
  if (!at)
    return;
  const PainterState state(device.painter());
  QPainter& painter = device.painter();
  painter.setPen(Qt::NoPen);
  painter.setBrush(device.halo());
  painter.drawEllipse(*at, m_radius + HaloWidth, m_radius + HaloWidth);
  painter.setBrush(colorOn(device));
  painter.drawEllipse(*at, m_radius, m_radius);
}

} // namespace Vela::Graphics
