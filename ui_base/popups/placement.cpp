// SPDX-License-Identifier: MIT
#include "placement.h"

#include <algorithm>
#include <array>

namespace Vela::UiBase::Placement {

namespace {

/// Where a popup of this length starts along a reference that starts at `start`.
int aligned(EWidgetsAlign alignment, int start, int last, int referenceLength, int popupLength) {
  switch (alignment) {
  case AlignStart:
    return start;
  case AlignCenter:
    return start + (referenceLength - popupLength) / 2;
  case AlignEnd:
    return last - popupLength;
  }
  return 0;
}

bool isOneOf(EArrowPosition position, EArrowPosition a, EArrowPosition b) {
  return position == a || position == b;
}

/// The arrows that suit each side, of which the first is in the middle of an edge.
struct SideArrows {
  EDirection side;
  std::array<EArrowPosition, 3> positions;
};
constexpr std::array<SideArrows, 4> sideArrows = {{{Left, {ArrowRight, ArrowTopRight, ArrowBottomRight}},
                                                   {Right, {ArrowLeft, ArrowTopLeft, ArrowBottomLeft}},
                                                   {Top, {ArrowBottom, ArrowBottomLeft, ArrowBottomRight}},
                                                   {Bottom, {ArrowTop, ArrowTopLeft, ArrowTopRight}}}};

void appendArrows(QList<ArrowPair>& pairs, SArrowParam arrow, EDirection side) {
  for (const SideArrows& arrows : sideArrows) {
    if (arrows.side != side)
      continue;
    for (const EArrowPosition position : arrows.positions) {
      arrow.position = position;
      pairs.emplace_back(arrow, side);
    }
  }
}

SArrowParam templateLike(const QList<SArrowParam>& given) {
  SArrowParam arrow = given.isEmpty() ? SArrowParam() : given.first();
  arrow.fixedAngle = false;
  arrow.offset = 0;
  return arrow;
}

} // namespace

QList<EDirection> fullPriorityList(QList<EDirection> wanted) {
  wanted.removeAll(AnyDirection);
  constexpr std::array<std::array<EDirection, 2>, 4> opposites = {
      {{Left, Right}, {Right, Left}, {Top, Bottom}, {Bottom, Top}}};
  for (const auto& [side, opposite] : opposites)
    if (wanted.contains(side) && !wanted.contains(opposite))
      wanted.append(opposite);
  for (const EDirection side : {Left, Top, Right, Bottom})
    if (!wanted.contains(side))
      wanted.append(side);
  return wanted;
}

std::optional<EDirection> sideOf(EArrowPosition position) {
  switch (position) {
  case ArrowRight:
  case ArrowTopRight:
  case ArrowBottomRight:
    return Left;
  case ArrowLeft:
  case ArrowTopLeft:
  case ArrowBottomLeft:
    return Right;
  case ArrowTop:
    return Bottom;
  case ArrowBottom:
    return Top;
  default:
    return std::nullopt;
  }
}

QList<ArrowPair> arrowPairs(const QList<SArrowParam>& given, bool autoDecide,
                            const QList<EDirection>& sides) {
  QList<ArrowPair> pairs;
  pairs.reserve(given.size() + (autoDecide ? 3 * sides.size() : 0) + 1);
  for (const SArrowParam& arrow : given)
    if (const auto side = sideOf(arrow.position))
      pairs.emplace_back(arrow, *side);

  if (autoDecide) {
    const SArrowParam arrow = templateLike(given);
    for (const EDirection side : sides)
      appendArrows(pairs, arrow, side);
  }
  if (pairs.size() > 1 || (autoDecide && !pairs.isEmpty()))
    pairs.append(ArrowPair(pairs.first()));
  return pairs;
}

bool verify(const QRect& popup, const QRect& area, QPoint& adjust) {
  const int beyondLeft = area.left() - popup.left();
  const int beyondRight = popup.right() - area.right();
  const int beyondTop = area.top() - popup.top();
  const int beyondBottom = popup.bottom() - area.bottom();
  const bool insideAlongX = beyondLeft <= 0 && beyondRight <= 0;
  if (insideAlongX && beyondTop <= 0 && beyondBottom <= 0)
    return true;

  constexpr int reserve = 70; // the arrow and the corners beside it
  const int limit = (insideAlongX ? popup.height() : popup.width()) - reserve;
  if (beyondLeft > 0)
    adjust = {-std::min(beyondLeft, limit), 0};
  else if (beyondRight > 0)
    adjust = {std::min(beyondRight, limit), 0};
  else if (beyondTop > 0)
    adjust = {0, -std::min(beyondTop, limit)};
  else
    adjust = {0, std::min(beyondBottom, limit)};
  return false;
}

QPoint plainPosition(const Target& target, EDirection side, const QSize& popup) {
  const QRect& reference = target.reference;
  const auto alongX = [&] {
    return aligned(target.alignment, reference.left(), reference.right(), reference.width(), popup.width());
  };
  const auto alongY = [&] {
    return aligned(target.alignment, reference.top(), reference.bottom(), reference.height(), popup.height());
  };
  switch (side) {
  case Bottom:
    return QPoint(alongX(), reference.bottom() + target.baseOffset) + target.additionalOffset;
  case Top:
    return QPoint(alongX(), reference.top() - target.baseOffset - popup.height()) + target.additionalOffset;
  case Right:
    return QPoint(reference.right() + target.baseOffset, alongY()) + target.additionalOffset;
  case Left:
    return QPoint(reference.left() - target.baseOffset - popup.width(), alongY()) + target.additionalOffset;
  default:
    return target.additionalOffset;
  }
}

QPoint arrowedPosition(const Target& target, const ArrowPair& arrow, const QRect& popup, const QPoint& tip) {
  const EArrowPosition position = arrow.first.position;
  const bool fixedAngle = arrow.first.fixedAngle;
  const QRect& reference = target.reference;
  const int gap = target.baseOffset;
  const int dx = popup.left() - tip.x();
  const int dy = popup.top() - tip.y();

  const auto alongX = [&] {
    if (!fixedAngle && isOneOf(position, ArrowTopLeft, ArrowBottomLeft))
      return reference.right() + gap + dx;
    if (!fixedAngle && isOneOf(position, ArrowTopRight, ArrowBottomRight))
      return -gap + dx;
    return reference.center().x() + dx;
  };
  const auto alongY = [&] {
    if (!fixedAngle && isOneOf(position, ArrowTopLeft, ArrowTopRight))
      return reference.bottom() + gap + dy;
    if (!fixedAngle && isOneOf(position, ArrowBottomRight, ArrowBottomLeft))
      return -gap + dy;
    return reference.center().y() + dy;
  };
  switch (arrow.second) {
  case Bottom:
    return {alongX(), reference.bottom() + gap + dy};
  case Top:
  case AnyDirection:
    return {alongX(), reference.top() - gap - popup.height() + (popup.bottom() - tip.y())};
  case Right:
    return {reference.right() + gap + dx, alongY()};
  case Left:
    return {reference.left() - gap - popup.width() + (popup.right() - tip.x()), alongY()};
  }
  return {};
}

bool covers(const QRect& popup, const Target& target) {
  const int overlap = std::max(0, 1 - target.baseOffset);
  const QRect inner = target.reference.adjusted(overlap, overlap, -overlap, -overlap);
  return inner.isValid() && inner.intersects(popup);
}

} // namespace Vela::UiBase::Placement
