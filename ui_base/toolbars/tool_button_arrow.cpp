// SPDX-License-Identifier: MIT
#include "tool_button_arrow.h"

#include <QPolygonF>
#include <QRect>

#include <array>

namespace Vela::UiBase {

namespace {

using Corners = std::array<QPoint, 3>;

constexpr int nearestToEdge = 3; // px, of the corners to the side of the button

/// From the bottom right pixel of the button.
constexpr Corners corners(EDirection direction) {
  switch (direction) {
  case Left:
    return {QPoint(-3, -2), QPoint(-3, -7), QPoint(-6, -4)};
  case Top:
    return {QPoint(-8, -2), QPoint(-3, -2), QPoint(-5, -5)};
  case Right:
    return {QPoint(-6, -2), QPoint(-6, -7), QPoint(-3, -4)};
  default:
    return {QPoint(-8, -5), QPoint(-3, -5), QPoint(-5, -2)};
  }
}

constexpr EDirection turned(EDirection direction) {
  switch (direction) {
  case Left:
    return Right;
  case Right:
    return Left;
  case Bottom:
    return Top;
  default:
    return Bottom;
  }
}

} // namespace

QPainterPath toolButtonArrow(const QRect& button, EDirection direction, bool menuOpen,
                             Qt::LayoutDirection layout) {
  QPolygonF triangle;
  for (const QPoint& corner : corners(menuOpen ? turned(direction) : direction))
    triangle << button.bottomRight() + corner;
  if (layout == Qt::RightToLeft)
    triangle.translate(button.left() + nearestToEdge - triangle.boundingRect().left(), 0);
  QPainterPath path;
  path.addPolygon(triangle);
  return path;
}

} // namespace Vela::UiBase
