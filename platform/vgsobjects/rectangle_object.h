// SPDX-License-Identifier: MIT
#pragma once

#include <vgsobjects/annotation_object.h>

#include <QRectF>

namespace Vela::Graphics {

/// A rectangle of the view, as a selection frame: outlined, and lightly filled. In logical pixels.
class VGS_OBJECTS_EXPORT RectangleObject : public AnnotationObject {
public:
  /// A frame in pixels of the view.
  explicit RectangleObject(const QRectF& rectangle);
  ~RectangleObject() override;

  void draw(const AnnotationDevice& device) const override;

  /// In pixels of the view.
  const QRectF& rectangle() const noexcept { return m_rectangle; }
  /// See rectangle().
  void setRectangle(const QRectF& rectangle) { m_rectangle = rectangle; }

private:
  QRectF m_rectangle;
};

} // namespace Vela::Graphics
