// SPDX-License-Identifier: MIT
#include "arrow_geometry.h"
#include "arrow_outline.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace Vela::UiBase {

namespace {

using namespace ArrowGeometry;

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

ArrowLayout measureArrow(const ArrowFrame& frame, const SArrowParam& arrow) {
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
  return layout;
}

} // namespace Vela::UiBase
