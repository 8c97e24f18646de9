// SPDX-License-Identifier: MIT
#pragma once

#include <vgsobjects/annotation_object.h>

#include <QPointF>
#include <QString>
#include <QVector3D>

namespace Vela::Graphics {

/// A line of text at a point of the scene.
class VGS_OBJECTS_EXPORT TextObject : public AnnotationObject {
public:
  /// A text beside a point of the scene.
  TextObject(const QVector3D& position, QString text);
  ~TextObject() override;

  void draw(const AnnotationDevice& device) const override;

  /// The point it stands beside, in scene coordinates.
  const QVector3D& position() const noexcept { return m_position; }
  /// See position().
  void setPosition(const QVector3D& position) { m_position = position; }
  /// What is written, plain text.
  const QString& text() const noexcept { return m_text; }
  /// See text().
  void setText(const QString& text) { m_text = text; }
  /// Where the middle of the text is, in logical pixels from the point; on the point unless set.
  void setOffset(const QPointF& offset) { m_offset = offset; }

private:
  QVector3D m_position;
  QString m_text;
  QPointF m_offset;
};

} // namespace Vela::Graphics
