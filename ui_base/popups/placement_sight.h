// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/popups/arrow_param.h>
#include <ui_base/popups/placement.h>
#include <ui_base/ui_base_export.h>

#include <QPoint>
#include <QRect>

#include <span>

/// Keeping popups in sight, as arithmetic: what is done with the answer of a search that lies beyond the area
/// in which the popup can be seen.
namespace Vela::UiBase::Placement {

/// One way in which a popup may stand beside its reference.
struct Stance {
  EDirection side = Top;
  QRect rect = {}; ///< What is seen of the popup there, without the room for a shadow.
  /// Where along the popup's edge its arrow ends, from the popup's start, and how far it may be slid. A popup
  /// without an arrow moves as it likes, one whose range is empty not at all.
  bool arrowed = false;
  int tip = 0;
  int firstTip = 0;
  int lastTip = 0;
  /// The overlap with the reference is wanted.
  bool mayCover = false;
};

/// Where it comes to stand.
struct KeptStance {
  qsizetype index = -1; ///< Of the stance that was taken; -1 where there was none.
  QRect rect = {};
  int slide = 0;     ///< By how much the arrow's tip moves along the popup's edge.
  qint64 hidden = 0; ///< Square pixels beyond the area.
  /// Whether it is seen as a whole.
  bool isWhole() const { return index >= 0 && hidden == 0; }
};

/// Where the tip of an arrow is to be. As the search has it, but arrows at corners meet the reference at all
/// of its corners.
UI_BASE_EXPORT QPoint pointedAt(const Target& target, const SArrowParam& arrow, EDirection side);

/// A popup without an arrow on each of `sides`.
UI_BASE_EXPORT QList<Stance> plainStances(const Target& target, std::span<const EDirection> sides,
                                          const QSize& popup);

/// The first of the stances that lies wholly in the area, clear of the reference. Where none does, each is
/// moved in: along the edge of the reference, with the arrow sliding the other way so that it still ends at
/// the reference, and towards the reference until it touches it, but never over it. Then the one that is
/// least hidden is taken.
UI_BASE_EXPORT KeptStance keepInSight(std::span<const Stance> stances, const Target& target,
                                      const QRect& area);

/// The last resort, where there is no room beside the reference: all in the area, over as little of the
/// reference as can be. What is larger than the area begins where that does.
UI_BASE_EXPORT KeptStance keepInside(std::span<const Stance> stances, const Target& target,
                                     const QRect& area);

/// A popup without an arrow that its search has put at `rect`: left there while it is in sight, else kept in
/// sight.
UI_BASE_EXPORT QPoint plainInSight(const QRect& rect, const Target& target, std::span<const EDirection> sides,
                                   const QRect& area);

} // namespace Vela::UiBase::Placement
