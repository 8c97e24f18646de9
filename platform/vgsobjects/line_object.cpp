// SPDX-License-Identifier: MIT
#include "line_object.h"

#include "halo.h"

#include <QLineF>

#include <cmath>

namespace Vela::Graphics {

namespace {

constexpr double LineWidth = 1.75;
constexpr double TextDistance = 5; // from the line, in logical pixels

// Beside the middle of the line, on the side that is further up, where the text just clears the line.
QPointF textPlace(const QLineF& line, const QSizeF& text) {
  const QLineF across = line.normalVector().unitVector();
  const QPointF up = line.length() < 1 ? QPointF(0, -1) : QPointF(across.dx(), across.dy());
  const double distance =
      TextDistance + std::abs(up.x()) * text.width() / 2 + std::abs(up.y()) * text.height() / 2;
  return line.center() + (up.y() > 0 ? -up : up) * distance;
}

} // namespace

LineObject::LineObject(const QVector3D& from, const QVector3D& to) : m_from(from), m_to(to) {}

LineObject::~LineObject() = default;

void LineObject::setEnds(const QVector3D& from, const QVector3D& to) {
  m_from = from;
  m_to = to;
}

double LineObject::length() const { return double(m_from.distanceToPoint(m_to)); }

void LineObject::setUnits(Common::ELengthUnit scene, Common::ELengthUnit shown) {
  m_sceneUnit = scene;
  m_shownUnit = shown;
}

QString LineObject::text() const {
  if (!m_text.isEmpty())
    return m_text;
  return Common::formatValue(Common::convert(length(), m_sceneUnit, m_shownUnit), m_shownUnit);
}

void LineObject::draw(const AnnotationDevice& device) const {
  const auto from = device.project(m_from);
  const auto to = device.project(m_to);
  if (!from || !to)
    return;
  const PainterState state(device.painter());
  QPainter& painter = device.painter();
  const QLineF line(*from, *to);
  painter.setPen(QPen(device.halo(), LineWidth + 2 * HaloWidth, Qt::SolidLine, Qt::RoundCap));
  painter.drawLine(line);
  painter.setPen(QPen(colorOn(device), LineWidth, Qt::SolidLine, Qt::RoundCap));
  painter.drawLine(line);
  const QString label = text();
  drawText(device, textPlace(line, textSize(device, label)), label, colorOn(device));
}

} // namespace Vela::Graphics
