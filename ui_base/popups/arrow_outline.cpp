// SPDX-License-Identifier: MIT
#include "arrow_outline.h"

#include "arrow_geometry.h"

#include <QPainterPath>
#include <QtMath>

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>

namespace Vela::UiBase {

namespace {

using namespace ArrowGeometry;

/// How flat a side of the arrow may run towards the edge that it stands on, from the upright.
constexpr double FlattestSide = 75.0;
/// No miter is cut off: the sharpest tip stays below.
constexpr double MiterLimit = 100.0;

double dot(const QPointF& a, const QPointF& b) { return QPointF::dotProduct(a, b); }

QPointF unit(const QPointF& vector) { return vector / std::hypot(vector.x(), vector.y()); }

// --- the arrow

/// An edge of the body, walked clockwise: 0 top, 1 right, 2 bottom, 3 left. Corner n is the start of edge n.
struct Edge {
  Edge(const QRectF& body, int number) {
    const std::array<QPointF, 4> corners = {body.topLeft(), body.topRight(), body.bottomRight(),
                                            body.bottomLeft()};
    start = corners.at(number % 4);
    const QPointF way = corners.at((number + 1) % 4) - start;
    length = std::abs(way.x()) + std::abs(way.y());
    static constexpr std::array<QPointF, 4> ways = {QPointF(1, 0), QPointF(0, 1), QPointF(-1, 0),
                                                    QPointF(0, -1)};
    along = ways.at(number % 4);
    outward = {along.y(), -along.x()};
  }
  QPointF at(double distance) const { return start + along * distance; }
  double height(const QPointF& point) const { return dot(point - start, outward); }
  double position(const QPointF& point) const { return dot(point - start, along); }

  QPointF start;
  QPointF along;
  QPointF outward;
  double length = 0;
};

/// The two points of the outline between which the arrow stands, in the order of the walk.
struct Base {
  int edge = 0;
  bool onCorner = false;
  QPointF first;
  QPointF second;
};

class ArrowShape {
public:
  ArrowShape(const QRectF& body, double radius, const SArrowParam& arrow)
      : m_body(body),
        m_radius(radius),
        m_direction(directionOf(arrow.angle)),
        m_half(halfTipAngle(arrow)),
        m_length(arrow.length) {}

  std::optional<Base> baseFor(const QPointF& apex) const;

private:
  Base onEdge(int number, const QPointF& apex) const;
  Base onCorner(int number, const QPointF& apex) const;
  double footOf(const Edge& edge, const QPointF& apex, double halfAngle) const;

  QRectF m_body;
  double m_radius;
  QPointF m_direction;
  double m_half;
  double m_length;
};

std::optional<Base> ArrowShape::baseFor(const QPointF& apex) const {
  std::array<double, 4> heights = {};
  for (int number = 0; number < 4; ++number)
    heights.at(number) = Edge(m_body, number).height(apex);
  const int highest = int(std::max_element(heights.begin(), heights.end()) - heights.begin());
  const double height = heights.at(highest);
  if (height <= 0)
    return std::nullopt;
  if (heights.at((highest + 1) % 4) >= CornerEvenness * height)
    return onCorner((highest + 1) % 4, apex);
  if (heights.at((highest + 3) % 4) >= CornerEvenness * height)
    return onCorner(highest, apex);
  return onEdge(highest, apex);
}

/// Where a side of the arrow that leaves the apex at this angle from the arrow's axis meets the edge.
double ArrowShape::footOf(const Edge& edge, const QPointF& apex, double halfAngle) const {
  const double axis = std::atan2(-dot(m_direction, edge.along), dot(m_direction, edge.outward));
  const double flattest = qDegreesToRadians(FlattestSide);
  return edge.position(apex) +
         edge.height(apex) * std::tan(std::clamp(axis + halfAngle, -flattest, flattest));
}

Base ArrowShape::onEdge(int number, const QPointF& apex) const {
  const Edge edge(m_body, number);
  const double first = footOf(edge, apex, -m_half);
  const double straight = std::max(0.0, edge.length - 2 * m_radius);
  const double width = std::min(footOf(edge, apex, m_half) - first, straight);
  // Near a corner the arrow leans: its base stays on the straight part of the edge.
  const double from = std::clamp(first, m_radius, m_radius + straight - width);
  return {number, false, edge.at(from), edge.at(from + width)};
}

Base ArrowShape::onCorner(int number, const QPointF& apex) const {
  const Edge before(m_body, number + 3);
  const Edge after(m_body, number);
  const double reach = m_radius + m_length * std::tan(m_half);
  const auto limited = [&](const Edge& edge, double distance) {
    const double farthest = std::min(reach, edge.length - m_radius);
    return std::clamp(distance, m_radius, std::max(m_radius, farthest));
  };
  const double back = limited(before, before.length - footOf(before, apex, -m_half));
  const double ahead = limited(after, footOf(after, apex, m_half));
  return {number, true, before.at(before.length - back), after.at(ahead)};
}

/// From the apex of the outline to the outermost point that the border is painted to.
QPointF joinExtension(const QPointF& apex, const Base& base, const QPointF& direction, double stroke,
                      Qt::PenJoinStyle join) {
  if (join == Qt::RoundJoin)
    return direction * stroke / 2;
  const QPointF first = unit(apex - base.first);
  const QPointF second = unit(apex - base.second);
  const double half = std::acos(std::clamp(dot(first, second), -1.0, 1.0)) / 2;
  const QPointF middle = unit(first + second);
  return middle * stroke / 2 * (join == Qt::BevelJoin ? std::sin(half) : 1 / std::sin(half));
}

// --- the outline

class OutlinePen {
public:
  void to(const QPointF& point) {
    if (m_path.elementCount() == 0)
      m_path.moveTo(point);
    else
      m_path.lineTo(point);
  }
  void round(const QPointF& corner, const QPointF& in, const QPointF& out, double radius) {
    // The control points of a quarter of a circle.
    constexpr double quarter = 0.5522847498;
    to(corner - in * radius);
    m_path.cubicTo(corner - in * radius * (1 - quarter), corner + out * radius * (1 - quarter),
                   corner + out * radius);
  }
  QPainterPath closed() {
    m_path.closeSubpath();
    return m_path;
  }

private:
  QPainterPath m_path;
};

QPainterPath outlineOf(const QRectF& body, double radius, const std::optional<Base>& base,
                       const QPointF& apex) {
  OutlinePen pen;
  const auto arrow = [&] {
    pen.to(base->first);
    pen.to(apex);
    pen.to(base->second);
  };
  for (int number = 0; number < 4; ++number) {
    const Edge edge(body, number);
    const bool here = base && base->edge == number;
    if (here && base->onCorner)
      arrow();
    else if (radius > 0)
      pen.round(edge.start, Edge(body, number + 3).along, edge.along, radius);
    else
      pen.to(edge.start);
    if (here && !base->onCorner)
      arrow();
  }
  return pen.closed();
}

/// Stroked here, because the painter draws thin pens without joins.
QPainterPath borderOf(const ArrowFrame& frame, const QPainterPath& outline) {
  if (frame.border.style() == Qt::NoPen)
    return {};
  QPen pen = frame.border;
  pen.setWidthF(strokeWidth(frame));
  pen.setMiterLimit(MiterLimit);
  return QPainterPathStroker(pen).createStroke(outline);
}

QPainterPath outlineOf(const ArrowFrame& frame, const ArrowLayout& layout) {
  const double stroke = strokeWidth(frame);
  const double inset = stroke / 2;
  const QRectF body = QRectF(layout.bounds).adjusted(inset, inset, -inset, -inset);
  const double radius = std::max(0.0, frame.cornerRadius - inset);
  if (layout.arrow.position == NoArrow || layout.arrow.length <= 0)
    return outlineOf(body, radius, std::nullopt, {});

  const QPointF direction = directionOf(layout.arrow.angle);
  const double toEdge = 0.5 / std::max(std::abs(direction.x()), std::abs(direction.y()));
  const QPointF outermost = QPointF(layout.tip) + QPointF(0.5, 0.5) + direction * toEdge;
  const ArrowShape shape(body, radius, layout.arrow);
  // How far the border's join reaches depends on the apex, and the apex on that: it settles at once.
  QPointF apex = outermost - direction * inset;
  std::optional<Base> base = shape.baseFor(apex);
  for (int pass = 0; base && pass < 3; ++pass) {
    apex = outermost - joinExtension(apex, *base, direction, stroke, frame.border.joinStyle());
    base = shape.baseFor(apex);
  }
  return outlineOf(body, radius, base, apex);
}

} // namespace

void drawArrow(const ArrowFrame& frame, ArrowLayout& layout) {
  layout.outline = outlineOf(frame, layout);
  layout.border = borderOf(frame, layout.outline);
}

} // namespace Vela::UiBase
