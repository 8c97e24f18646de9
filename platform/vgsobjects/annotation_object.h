// SPDX-License-Identifier: MIT
#pragma once

#include <vgsobjects/vgsobjects_export.h>

#include <QColor>

namespace Vela::Graphics {

class AnnotationDevice;

/// Something that is drawn over a scene: it stands at points of the scene, but its strokes and letters are as
/// large however far away they are. Each is drawn with a halo, so that it is legible on light and dark. What
/// stands behind the eye is not drawn.
///
/// @code
/// LineObject edge(from, to);
/// edge.setUnits(Vela::Common::Millimetre, Vela::Common::Inch);
/// edge.draw(device);
/// @endcode
class VGS_OBJECTS_EXPORT AnnotationObject {
public:
  AnnotationObject();
  virtual ~AnnotationObject();

  /// Leaves the state of the device's painter as it was.
  virtual void draw(const AnnotationDevice& device) const = 0;

  /// Invalid, which stands for the ink of the device, unless one was set.
  const QColor& color() const noexcept { return m_color; }
  /// See color().
  void setColor(const QColor& color) { m_color = color; }

protected:
  /// Subclasses may be copied.
  AnnotationObject(const AnnotationObject&);
  AnnotationObject& operator=(const AnnotationObject&);

  /// The colour it is drawn with on @p device: its own, or else that of the palette's text.
  QColor colorOn(const AnnotationDevice& device) const;

private:
  QColor m_color;
};

} // namespace Vela::Graphics
