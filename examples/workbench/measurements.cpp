// SPDX-License-Identifier: MIT
#include "measurements.h"

#include <vgsobjects/line_object.h>
#include <vgsobjects/point_object.h>

#include <algorithm>
#include <cmath>

namespace Workbench {

using namespace Vela::Graphics;

namespace {

constexpr double Reach = 8; // px from a line

double distanceToLine(const QPointF& place, const QPointF& from, const QPointF& to) {
  const QPointF along = to - from;
  const double square = QPointF::dotProduct(along, along);
  const double part =
      square > 0 ? std::clamp(QPointF::dotProduct(place - from, along) / square, 0.0, 1.0) : 0;
  const QPointF away = place - from - along * part;
  return std::hypot(away.x(), away.y());
}

LineObject lineOf(const Measurements::Distance& distance, Vela::Common::ELengthUnit unit) {
  LineObject line(distance.from, distance.to);
  line.setUnits(Vela::Common::Millimetre, unit);
  return line;
}

} // namespace

void Measurements::setMesh(const Mesh& mesh) {
  if (mesh.isCopyOf(m_mesh))
    return;
  m_mesh = mesh;
  if (!m_distances.empty())
    Q_EMIT changed();
}

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
  m_measuredOn.push_back(m_mesh);
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

void Measurements::remove(std::size_t index) {
  if (index >= m_distances.size())
    return;
  m_distances.erase(m_distances.begin() + std::ptrdiff_t(index));
  m_measuredOn.erase(m_measuredOn.begin() + std::ptrdiff_t(index));
  Q_EMIT changed();
  Q_EMIT distancesChanged();
}

void Measurements::removeNewest() {
  if (!m_distances.empty())
    remove(m_distances.size() - 1);
}

void Measurements::clear() {
  takeBack();
  if (m_distances.empty())
    return;
  m_distances.clear();
  m_measuredOn.clear();
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

QString Measurements::textOf(std::size_t index) const {
  const QString length = lineOf(m_distances[index], m_unit).text();
  return isOld(index) ? tr("%1 (before an edit)").arg(length) : length;
}

QString Measurements::text() const {
  return m_distances.empty() ? QString() : textOf(m_distances.size() - 1);
}

QString Measurements::list() const {
  QStringList lines;
  for (std::size_t i = 0; i < m_distances.size(); ++i)
    lines += textOf(i);
  return lines.join(u'\n');
}

std::optional<std::size_t> Measurements::nearestTo(const QPointF& place, const Projection& projection) const {
  std::optional<std::size_t> nearest;
  double reach = Reach;
  for (std::size_t i = 0; i < m_distances.size(); ++i) {
    const auto from = projection(m_distances[i].from);
    const auto to = projection(m_distances[i].to);
    const double away = from && to ? distanceToLine(place, *from, *to) : reach;
    if (away < reach) {
      reach = away;
      nearest = i;
    }
  }
  return nearest;
}

void Measurements::draw(const AnnotationDevice& device) const {
  for (std::size_t i = 0; i < m_distances.size(); ++i) {
    LineObject line = lineOf(m_distances[i], m_unit);
    PointObject from(m_distances[i].from);
    PointObject to(m_distances[i].to);
    line.setText(textOf(i));
    for (AnnotationObject* const part : std::initializer_list<AnnotationObject*>{&line, &from, &to}) {
      if (isOld(i))
        part->setColor(Qt::gray);
      part->draw(device);
    }
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
