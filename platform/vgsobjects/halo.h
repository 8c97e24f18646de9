// SPDX-License-Identifier: MIT
#pragma once

#include <vgsdevices/annotation_device.h>

#include <QPainter>

namespace Vela::Graphics {

/// How far a halo reaches beyond what it surrounds, in logical pixels.
inline constexpr double HaloWidth = 1.5;

/// Smooth edges, and at the end the painter as it was.
class PainterState {
public:
  explicit PainterState(QPainter& painter) : m_painter(painter) {
    m_painter.save();
    m_painter.setRenderHint(QPainter::Antialiasing);
  }
  ~PainterState() { m_painter.restore(); }
  Q_DISABLE_COPY_MOVE(PainterState)

private:
  QPainter& m_painter;
};

/// The room that drawText() takes, halo included.
QSizeF textSize(const AnnotationDevice& device, const QString& text);
/// Draws a line of text with a halo, its middle at a position.
void drawText(const AnnotationDevice& device, const QPointF& middle, const QString& text,
              const QColor& color);

} // namespace Vela::Graphics
