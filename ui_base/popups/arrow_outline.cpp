// SPDX-License-Identifier: MIT
#include "arrow_outline.h"

#include <QtMath>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <optional>

namespace Vela::UiBase {

namespace {

constexpr double SmallestTipAngle = 20.0;
constexpr double LargestTipAngle = 150.0;
/// How flat a side of the arrow may run towards the edge that it stands on, from the upright.
constexpr double FlattestSide = 75.0;
/// An arrow stands on a corner when it points this evenly away from both of its edges.
constexpr double CornerEvenness = 0.2;
/// No miter is cut off: the sharpest tip stays below.
constexpr double MiterLimit = 100.0;

double dot(const QPointF& a, const QPointF& b) { return QPointF::dotProduct(a, b); }

QPointF unit(const QPointF& vector) { return vector / std::hypot(vector.x(), vector.y()); }

QPointF directionOf(int angle) {
  const double radians = qDegreesToRadians(double(angle));
  return {std::cos(radians), std::sin(radians)};
}

double halfTipAngle(const SArrowParam& arrow) {
  return qDegreesToRadians(std::clamp(double(arrow.tipAngle), SmallestTipAngle, LargestTipAngle)) / 2;
}

double strokeWidth(const ArrowFrame& frame) {
  if (frame.border.style() == Qt::NoPen)
    return 0;
  return frame.border.widthF() > 0 ? frame.border.widthF() : 1.0 / frame.pixelRatio;
}

int borderThickness(const ArrowFrame& frame) {
  return frame.border.style() == Qt::NoPen ? 0 : std::max(1, frame.border.width());
}

// --- the body

/// From the outer edge to the content: no corner of it lies beyond the rounding.
int contentInset(const ArrowFrame& frame) {
  const int border = borderThickness(frame);
  const double rounding = (1 - M_SQRT1_2) * std::max(0, frame.cornerRadius - border);
  return border + std::max(frame.contentMargin, qCeil(rounding));
}

/// For the arrow at this angle.
QSize smallestBody(const ArrowFrame& frame, const SArrowParam& arrow) {
  const int corners = 2 * frame.cornerRadius;
  QSize size(corners, corners);
  if (arrow.position == NoArrow)
    return size;
  const QPointF direction = directionOf(arrow.angle);
  const double x = std::abs(direction.x());
  const double y = std::abs(direction.y());
  const double halfBase = std::max(0, arrow.length) * std::tan(halfTipAngle(arrow));
  const bool diagonal = std::min(x, y) >= CornerEvenness * std::max(x, y);
  const int base = qCeil(diagonal ? halfBase : 2 * halfBase);
  if (diagonal || y > x)
    size.rwidth() += base;
  if (diagonal || x > y)
    size.rheight() += base;
  return size;
}

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

/// How far the tip must stand out to be told from the border.
double shortestLength(const ArrowFrame& frame, const SArrowParam& arrow) {
  const Qt::PenJoinStyle join = frame.border.joinStyle();
  const bool pointed = join == Qt::MiterJoin || join == Qt::SvgMiterJoin;
  return pointed ? 1 + strokeWidth(frame) / 2 * (1 / std::sin(halfTipAngle(arrow)) - 1) : 1;
}

/// The pixel that the arrow points with.
QPoint tipPixel(const ArrowFrame& frame, const SArrowParam& arrow, const QRect& body) {
  const QPointF direction = directionOf(arrow.angle);
  const QPointF anchor = QPointF(arrow.anchor) + QPointF(0.5, 0.5);
  const auto way = [](double from, double step, double low, double high) {
    if (std::abs(step) < 1e-9)
      return std::numeric_limits<double>::max();
    return ((step > 0 ? high : low) - from) / step;
  };
  const QRectF outer(body);
  const double toEdge = std::min(way(anchor.x(), direction.x(), outer.left(), outer.right()),
                                 way(anchor.y(), direction.y(), outer.top(), outer.bottom()));
  const double length = arrow.length > 0 ? std::max(double(arrow.length), shortestLength(frame, arrow)) : 0.0;
  // From the outermost point of a pixel to its centre.
  const double toCentre = 0.5 / std::max(std::abs(direction.x()), std::abs(direction.y()));
  const QPointF centre = anchor + direction * (toEdge + length - toCentre);
  constexpr double epsilon = 1e-6;
  return {qFloor(centre.x() + epsilon), qFloor(centre.y() + epsilon)};
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

// --- normalising

QPoint anchorAt(EArrowPosition position, const QRect& content) {
  switch (position) {
  case ArrowTop:
    return {content.center().x(), content.top()};
  case ArrowBottom:
    return {content.center().x(), content.bottom()};
  case ArrowLeft:
    return {content.left(), content.center().y()};
  case ArrowRight:
    return {content.right(), content.center().y()};
  case ArrowTopLeft:
    return content.topLeft();
  case ArrowTopRight:
    return content.topRight();
  case ArrowBottomRight:
    return content.bottomRight();
  case ArrowBottomLeft:
    return content.bottomLeft();
  case NoArrow:
    break;
  }
  return {};
}

/// The angle of an arrow that must not point into the rectangle on whose edge it sits.
int turnedOutward(int angle, const QPoint& anchor, const QRect& content) {
  if (anchor.x() == content.left() && (angle < 91 || angle > 269))
    return 180;
  if (anchor.y() == content.top() && (angle < 181 || angle > 359))
    return 270;
  if (anchor.x() == content.right() && angle >= 90 && angle <= 270)
    return 0;
  if (anchor.y() == content.bottom() && (angle < 1 || angle > 179))
    return 90;
  return angle;
}

/// The angle decides on the smallest body, and the body may turn the angle: there is room for both.
QSize smallestBody(const ArrowFrame& frame, SArrowParam arrow, const QMargins& toContent) {
  if (!arrow.fixedAngle)
    arrow.angle = defaultArrowAngle(arrow.position);
  const QSize smallest = smallestBody(frame, arrow);
  const QSize content = frame.content.expandedTo(smallest.shrunkBy(toContent));
  return smallest.expandedTo(smallestBody(frame, normalizedArrow(arrow, QRect({0, 0}, content))));
}

} // namespace

SArrowParam normalizedArrow(SArrowParam arrow, const QRect& content) {
  if (arrow.position == NoArrow)
    return arrow;
  arrow.anchor = anchorAt(arrow.position, content);
  if (!arrow.fixedAngle)
    arrow.angle = defaultArrowAngle(arrow.position);
  arrow.angle = (arrow.angle % 360 + 360) % 360;
  const QPoint moved =
      arrow.anchor + (arrow.offsetAlongX ? QPoint(arrow.offset, 0) : QPoint(0, arrow.offset));
  if (content.contains(moved))
    arrow.anchor = moved;
  arrow.angle = turnedOutward(arrow.angle, arrow.anchor, content);
  return arrow;
}

ArrowLayout layOutArrow(const ArrowFrame& frame, const SArrowParam& arrow) {
  const int inset = contentInset(frame);
  const QMargins toContent(inset, inset, inset, inset);
  ArrowLayout layout;
  const QSize smallest = smallestBody(frame, arrow, toContent);
  layout.smallestContent = smallest.shrunkBy(toContent).expandedTo({0, 0});
  const QSize body = frame.content.expandedTo(layout.smallestContent).grownBy(toContent);
  layout.bounds = QRect({0, 0}, body);
  layout.content = layout.bounds.marginsRemoved(toContent);
  layout.arrow = normalizedArrow(arrow, layout.content);

  const bool hasArrow = layout.arrow.position != NoArrow;
  QRect whole = layout.bounds;
  if (hasArrow) {
    layout.tip = tipPixel(frame, layout.arrow, layout.bounds);
    whole |= QRect(layout.tip, QSize(1, 1));
  }
  whole += frame.room;
  layout.size = whole.size();
  layout.bounds.translate(-whole.topLeft());
  layout.content.translate(-whole.topLeft());
  if (hasArrow) {
    layout.tip -= whole.topLeft();
    layout.arrow.anchor -= whole.topLeft();
  }
  layout.outline = outlineOf(frame, layout);
  layout.border = borderOf(frame, layout.outline);
  return layout;
}

} // namespace Vela::UiBase
