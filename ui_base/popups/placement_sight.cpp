// SPDX-License-Identifier: MIT
#include "placement_sight.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace Vela::UiBase::Placement {

namespace {

qint64 pixels(const QRect& rect) { return rect.isValid() ? qint64(rect.width()) * rect.height() : 0; }

qint64 hiddenOf(const QRect& rect, const QRect& area) { return pixels(rect) - pixels(rect & area); }

/// A stretch of pixels, the last one included.
struct Span {
  int first;
  int last;
  int length() const { return last - first + 1; }
};

/// Rectangles as seen along the edge of the reference beside which a popup stands, or across it.
class Axis {
public:
  explicit Axis(bool horizontal) : m_horizontal(horizontal) {}

  Span of(const QRect& rect) const {
    return m_horizontal ? Span{rect.left(), rect.right()} : Span{rect.top(), rect.bottom()};
  }
  void moveTo(QRect& rect, int first) const {
    if (m_horizontal)
      rect.moveLeft(first);
    else
      rect.moveTop(first);
  }

private:
  const bool m_horizontal;
};

bool isAboveOrBelow(EDirection side) { return side == Top || side == Bottom; }

/// Where a span has to begin to lie within another one; one that is too long begins where that does.
int inside(int first, int length, const Span& room) {
  return std::max(room.first, std::min(first, room.last - length + 1));
}

/// What of the reference must not be covered: a negative distance makes popups overlap its edges.
QRect coreOf(const Target& target) {
  const int overlap = std::max(0, 1 - target.baseOffset);
  return target.reference.adjusted(overlap, overlap, -overlap, -overlap);
}

/// Across the edge a popup comes as near as it must, and no nearer than the reference.
void moveAcross(QRect& rect, const Stance& stance, const Target& target, const QRect& area) {
  const Axis across(!isAboveOrBelow(stance.side));
  const Span place = across.of(rect);
  const Span core = across.of(coreOf(target));
  int first = inside(place.first, place.length(), across.of(area));
  if (target.reference.isValid() && core.length() > 0) {
    const bool after = stance.side == Bottom || stance.side == Right;
    const int nearest = after ? core.last + 1 : core.first - place.length();
    const int limit = !stance.mayCover ? nearest
                      : after          ? std::min(nearest, place.first)
                                       : std::max(nearest, place.first);
    first = after ? std::max(first, limit) : std::min(first, limit);
  }
  across.moveTo(rect, first);
}

/// Along the edge; returns by how much the tip has moved on the popup.
int moveAlong(QRect& rect, const Stance& stance, const Target& target, const QRect& area) {
  const Axis along(isAboveOrBelow(stance.side));
  const Span place = along.of(rect);
  const int first = inside(place.first, place.length(), along.of(area));
  if (!stance.arrowed) {
    along.moveTo(rect, first);
    return 0;
  }
  if (stance.firstTip > stance.lastTip)
    return 0;
  const int pointedAt = place.first + stance.tip;
  const int tip = std::clamp(pointedAt - first, stance.firstTip, stance.lastTip);
  // What the arrow cannot slide, the point may move along the reference.
  const Span edge = along.of(target.reference);
  const Span points{std::min(edge.first, pointedAt), std::max(edge.last, pointedAt)};
  along.moveTo(rect, std::clamp(first + tip, points.first, points.last) - tip);
  return tip - stance.tip;
}

} // namespace

QPoint pointedAt(const Target& target, const SArrowParam& arrow, EDirection side) {
  const QRect& reference = target.reference;
  const QPoint before = reference.topLeft() - QPoint(target.baseOffset + 1, target.baseOffset + 1);
  const QPoint after = reference.bottomRight() + QPoint(target.baseOffset, target.baseOffset);
  QPoint point = reference.center();
  if (side == Left || side == Right)
    point.setX(side == Left ? before.x() : after.x());
  else
    point.setY(side == Bottom ? after.y() : before.y());
  if (arrow.fixedAngle)
    return point;
  switch (arrow.position) {
  case ArrowTopLeft:
    return after;
  case ArrowTopRight:
    return {before.x(), after.y()};
  case ArrowBottomLeft:
    return {after.x(), before.y()};
  case ArrowBottomRight:
    return before;
  default:
    return point;
  }
}

QList<Stance> plainStances(const Target& target, std::span<const EDirection> sides, const QSize& popup) {
  QList<Stance> stances;
  for (const EDirection side : sides) {
    const QRect rect(plainPosition(target, side, popup), popup);
    // The offset that an application wants on its own side may be wrong on the others.
    stances.append({.side = side, .rect = rect, .mayCover = stances.isEmpty()});
  }
  return stances;
}

KeptStance keepInSight(std::span<const Stance> stances, const Target& target, const QRect& area) {
  for (std::size_t i = 0; i < stances.size(); ++i) {
    const Stance& stance = stances[i];
    if (area.contains(stance.rect) && (stance.mayCover || !covers(stance.rect, target)))
      return {.index = qsizetype(i), .rect = stance.rect};
  }
  KeptStance best;
  qint64 bestBefore = 0;
  for (std::size_t i = 0; i < stances.size(); ++i) {
    KeptStance kept{.index = qsizetype(i), .rect = stances[i].rect};
    kept.slide = moveAlong(kept.rect, stances[i], target, area);
    moveAcross(kept.rect, stances[i], target, area);
    kept.hidden = hiddenOf(kept.rect, area);
    const qint64 before = hiddenOf(stances[i].rect, area);
    if (best.index >= 0 && std::pair(kept.hidden, before) >= std::pair(best.hidden, bestBefore))
      continue;
    best = kept;
    bestBefore = before;
  }
  return best;
}

KeptStance keepInside(std::span<const Stance> stances, const Target& target, const QRect& area) {
  KeptStance best;
  constexpr qint64 most = std::numeric_limits<qint64>::max();
  std::pair least(most, most); // covered, then hidden
  for (std::size_t i = 0; i < stances.size(); ++i) {
    KeptStance kept{.index = qsizetype(i), .rect = stances[i].rect};
    kept.slide = moveAlong(kept.rect, stances[i], target, area);
    const Axis x(true);
    const Axis y(false);
    x.moveTo(kept.rect, inside(kept.rect.left(), kept.rect.width(), x.of(area)));
    y.moveTo(kept.rect, inside(kept.rect.top(), kept.rect.height(), y.of(area)));
    kept.hidden = hiddenOf(kept.rect, area);
    const std::pair found(pixels(kept.rect & target.reference), kept.hidden);
    if (found >= least)
      continue;
    best = kept;
    least = found;
  }
  return best;
}

QPoint plainInSight(const QRect& rect, const Target& target, std::span<const EDirection> sides,
                    const QRect& area) {
  if (area.contains(rect) || sides.empty())
    return rect.topLeft();
  const QList<Stance> stances = plainStances(target, sides, rect.size());
  const KeptStance kept = keepInSight(stances, target, area);
  return (kept.isWhole() ? kept : keepInside(stances, target, area)).rect.topLeft();
}

} // namespace Vela::UiBase::Placement
