// SPDX-License-Identifier: MIT
#include "annotation_device.h"

#include <QPaintDevice>
#include <QPainter>

#include <utility>

namespace Vela::Graphics {

AnnotationDevice::AnnotationDevice(QPainter& painter, QPalette palette, Projection projection)
    : m_painter(painter), m_palette(std::move(palette)), m_projection(std::move(projection)) {}

qreal AnnotationDevice::devicePixelRatio() const { return m_painter.device()->devicePixelRatioF(); }

QColor AnnotationDevice::ink() const { return m_palette.color(QPalette::Active, QPalette::WindowText); }

QColor AnnotationDevice::halo() const {
  QColor color = ink().lightness() < 128 ? QColor(Qt::white) : QColor(Qt::black);
  color.setAlpha(215);
  return color;
}

} // namespace Vela::Graphics
