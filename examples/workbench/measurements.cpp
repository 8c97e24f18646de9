// SPDX-License-Identifier: MIT
#include "measurements.h"

#include <vgsobjects/line_object.h>
#include <vgsobjects/point_object.h>

namespace Workbench {

using namespace Vela::Graphics;

namespace {

LineObject lineOf(const Measurements::Distance& distance, Vela::Common::ELengthUnit unit) {
  LineObject line(distance.from, distance.to);
  line.setUnits(Vela::Common::Millimetre, unit);
  return line;
}

} // namespace

void Measurements::begin(const QVector3D& from) {
  m_begun = from;
  m_end.reset();
  Q_EMIT changed();
}

void Measurements::moveTo(const std::optional<QVector3D>& to) {
  if (!m_begun || m_end == to)
    return;
  m_end = to;
  Q_EMIT changed();
}

void Measurements::finish(const QVector3D& to) {
  if (!m_begun)
    return;
  m_distances.push_back({*m_begun, to});
  m_begun.reset();
  m_end.reset();
  Q_EMIT changed();
  Q_EMIT distancesChanged();
}

bool Measurements::takeBack() {
  if (!m_begun)
    return false;
  m_begun.reset();
  m_end.reset();
  Q_EMIT changed();
  return true;
}

void Measurements::clear() {
  takeBack();
  if (m_distances.empty())
    return;
  m_distances.clear();
  Q_EMIT changed();
  Q_EMIT distancesChanged();
}

void Measurements::setUnit(Vela::Common::ELengthUnit unit) {
  if (m_unit == unit)
    return;
  m_unit = unit;
  Q_EMIT changed();
  Q_EMIT unitChanged();
}

QString Measurements::text() const {
  return m_distances.empty() ? QString() : lineOf(m_distances.back(), m_unit).text();
}

void Measurements::draw(const AnnotationDevice& device) const {
  for (const Distance& distance : m_distances) {
    lineOf(distance, m_unit).draw(device);
    PointObject(distance.from).draw(device);
    PointObject(distance.to).draw(device);
  }
  if (!m_begun)
    return;
  if (m_end)
    lineOf({*m_begun, *m_end}, m_unit).draw(device);
  PointObject(*m_begun).draw(device);
  if (m_end)
    PointObject(*m_end).draw(device);
}

} // namespace Workbench
