// SPDX-License-Identifier: MIT
#pragma once

#include <vgsobjects/annotation_object.h>

#include <QVector3D>

namespace Vela::Graphics {

/// A dot at a point of the scene.
class VGS_OBJECTS_EXPORT PointObject : public AnnotationObject {
public:
  /// A dot at a point of the scene.
  explicit PointObject(const QVector3D& position);
  ~PointObject() override;

  void draw(const AnnotationDevice& device) const override;

  /// Where it stands, in scene coordinates.
  const QVector3D& position() const noexcept { return m_position; }
  /// See position().
  void setPosition(const QVector3D& position) { m_position = position; }
  /// In logical pixels; 3.5 unless set.
  double radius() const noexcept { return m_radius; }
  /// See radius().
  void setRadius(double radius) { m_radius = radius; }

private:
  QVector3D m_position;
  double m_radius = 3.5;
};

} // namespace Vela::Graphics
