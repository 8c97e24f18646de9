// SPDX-License-Identifier: MIT
#pragma once

#include <vgsdevices/vgsdevices_export.h>

#include <QPalette>
#include <QPointF>
#include <QVector3D>

#include <functional>
#include <optional>

class QPainter;

namespace Vela::Graphics {

/// What annotations are drawn on: a painter over a view, and where the view shows a point of its scene.
///
/// Positions are in logical pixels of the view, (0, 0) at its top left corner. A device serves one painting:
/// it refers to the painter, which outlives it. For the thread that paints.
///
/// @code
/// void MeshView::paintEvent(QPaintEvent*) {
///   QPainter painter(this);
///   AnnotationDevice device(painter, palette(),
///                           [this](const QVector3D& point) { return m_camera.project(point, size()); });
///   for (const auto& annotation : m_annotations)
///     annotation->draw(device);
/// }
/// @endcode
class VGS_DEVICES_EXPORT AnnotationDevice {
public:
  /// Where a point of the scene is seen; nothing for a point behind the eye.
  using Projection = std::function<std::optional<QPointF>(const QVector3D& point)>;

  /// Draws with @p painter, which must outlive the device, in the colours of @p palette.
  AnnotationDevice(QPainter& painter, QPalette palette, Projection projection);

  /// What annotations draw with, in the coordinates of the view.
  QPainter& painter() const noexcept { return m_painter; }
  /// Where a point of the scene is seen; nothing when it is behind the eye.
  std::optional<QPointF> project(const QVector3D& point) const { return m_projection(point); }
  /// The palette of the view, for colours that stand out from it.
  const QPalette& palette() const noexcept { return m_palette; }
  /// Pixels of the screen in one logical pixel.
  qreal devicePixelRatio() const;
  /// The colour of what is drawn unless it has one of its own: the palette's text colour.
  QColor ink() const;
  /// The colour around what is drawn, which keeps it legible on any background: the opposite of the ink.
  QColor halo() const;

private:
  QPainter& m_painter;
  QPalette m_palette;
  Projection m_projection;
};

} // namespace Vela::Graphics
