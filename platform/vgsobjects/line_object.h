// SPDX-License-Identifier: MIT
#pragma once

#include <qskrccommon/units.h>
#include <vgsobjects/annotation_object.h>

#include <QString>
#include <QVector3D>

namespace Vela::Graphics {

/// A line between two points of the scene with its length, or another text, beside its middle. Not drawn when
/// one of its ends stands behind the eye.
class VGS_OBJECTS_EXPORT LineObject : public AnnotationObject {
public:
  /// A line between two points of the scene.
  LineObject(const QVector3D& from, const QVector3D& to);
  ~LineObject() override;

  void draw(const AnnotationDevice& device) const override;

  /// One end, in scene coordinates.
  const QVector3D& from() const noexcept { return m_from; }
  /// The other end, in scene coordinates.
  const QVector3D& to() const noexcept { return m_to; }
  /// Moves both ends.
  void setEnds(const QVector3D& from, const QVector3D& to);
  /// In the units of the scene.
  double length() const;

  /// @param scene  what one unit of the scene stands for; millimetres unless set
  /// @param shown  what the length is shown in; millimetres unless set
  void setUnits(Common::ELengthUnit scene, Common::ELengthUnit shown);
  /// Shown in place of the length; empty brings the length back.
  void setText(const QString& text) { m_text = text; }
  /// What stands beside the line: the text that was set, or the length with its unit.
  QString text() const;

private:
  QVector3D m_from;
  QVector3D m_to;
  Common::ELengthUnit m_sceneUnit = Common::Millimetre;
  Common::ELengthUnit m_shownUnit = Common::Millimetre;
  QString m_text;
};

} // namespace Vela::Graphics
