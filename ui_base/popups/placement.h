// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/popups/arrow_param.h>
#include <ui_base/ui_base_export.h>

#include <QList>
#include <QMargins>
#include <QRect>

#include <optional>

/// The arithmetic of placing a popup beside its reference: rectangles and parameters in, positions out. Knows
/// no widget, so that anything can be placed with it that has a rectangle.
///
/// All lengths are in pixels. Right and bottom edges are inclusive, as QRect has them: to the right of a
/// reference a popup starts at right() + offset, one pixel nearer than on the left.
///
/// @code
/// namespace Placement = Vela::UiBase::Placement;
/// const Placement::Target target{.reference = label->geometry(), .baseOffset = 4};
/// const QPoint below = Placement::plainPosition(target, Vela::UiBase::Bottom, note->size());
/// QPoint adjust;
/// if (Placement::verify(QRect(below, note->size()), view->rect(), adjust))
///   note->move(below);
/// @endcode
namespace Vela::UiBase::Placement {

/// What a popup stands beside, and how.
struct Target {
  QRect reference = {};
  int baseOffset = 10; ///< The gap between the two.
  EWidgetsAlign alignment = AlignCenter;
  QPoint additionalOffset = {}; ///< Added to positions without an arrow.
};

/// The sides in the order in which they are tried: the wanted ones, then the opposites of the wanted ones,
/// then the others. AnyDirection wants none.
UI_BASE_EXPORT QList<EDirection> fullPriorityList(QList<EDirection> wanted);

/// The side on which a window with this arrow stands; none for NoArrow and unknown values.
UI_BASE_EXPORT std::optional<EDirection> sideOf(EArrowPosition position);

/// The arrows to try, each with its side. With `autoDecide` the given ones are followed by three for each of
/// `sides`, which take their looks from the first one given. The first is appended once more, as the last
/// resort, except when it is the only one and `autoDecide` is off.
UI_BASE_EXPORT QList<ArrowPair> arrowPairs(const QList<SArrowParam>& given, bool autoDecide,
                                           const QList<EDirection>& sides);

/// The reference rectangle of a single point: 7 by 7, the point in its middle.
QRect pointReference(const QPoint& point);

/// The part of a window in which popups may stand: without 30 pixels on each side, and without `taken`.
QRect freeArea(const QRect& window, const QMargins& taken);

/// Adds what a widget takes that stands beside the popup to the side's margin. `direction` is an EDirection;
/// others add nothing.
void addSideWidget(QMargins& taken, int direction, const QSize& size);

/// Whether a popup lies within an area. If not, `adjust` is set to what its arrow has to slide along the edge
/// so that the popup moves in, for the first edge violated of left, right, top, bottom. It slides by the
/// popup's length along that edge less 70 at most; on a popup shorter than that the limit turns negative.
UI_BASE_EXPORT bool verify(const QRect& popup, const QRect& area, QPoint& adjust);

/// The position of a popup without an arrow.
UI_BASE_EXPORT QPoint plainPosition(const Target& target, EDirection side, const QSize& popup);

/// The position of a popup with an arrow. `tip` is the arrow's tip, in the coordinates of `popup`. The tip
/// meets the middle of the reference's edge; corner arrows without a fixed angle meet its corner at the right
/// or bottom, and the origin of the coordinates, not the reference, at the left or top.
UI_BASE_EXPORT QPoint arrowedPosition(const Target& target, const ArrowPair& arrow, const QRect& popup,
                                      const QPoint& tip);

/// Slides an arrow by what verify() found.
void slide(SArrowParam& arrow, const QPoint& adjust);

/// Whether a popup at its place hides some of the reference. What a base offset below 1 makes it overlap on
/// its side does not count.
UI_BASE_EXPORT bool covers(const QRect& popup, const Target& target);

inline QRect pointReference(const QPoint& point) {
  return QRect(QPoint(-3, -3), QPoint(3, 3)).translated(point);
}

inline QRect freeArea(const QRect& window, const QMargins& taken) {
  constexpr int margin = 30;
  return window.normalized().marginsRemoved(taken + margin);
}

inline void addSideWidget(QMargins& taken, int direction, const QSize& size) {
  taken += QMargins(direction == Left ? size.width() : 0, direction == Top ? size.height() : 0,
                    direction == Right ? size.width() : 0, direction == Bottom ? size.height() : 0);
}

inline void slide(SArrowParam& arrow, const QPoint& adjust) {
  arrow.offsetAlongX = adjust.x() != 0;
  arrow.offset += arrow.offsetAlongX ? adjust.x() : adjust.y();
}

} // namespace Vela::UiBase::Placement
