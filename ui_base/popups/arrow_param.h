// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/ui_base_export.h>

#include <QMetaType>
#include <QPair>
#include <QPoint>

class QDebug;

namespace Vela::UiBase {

/// The side of its reference on which a popup stands.
enum EDirection : int {
  Left = 0,
  Top = 1,
  Right = 2,
  Bottom = 3,
  AnyDirection = 4, ///< No preference.
};

/// How a popup is aligned along the chosen side of its reference.
enum EWidgetsAlign : int {
  AlignStart = 0,  ///< Left edges in line above and below the reference, top edges beside it.
  AlignCenter = 1, ///< Centred.
  AlignEnd = 2,    ///< Right edges in line above and below the reference, bottom edges beside it.
};

/// Where the arrow sits on an ArrowedWindow. It points away from the window.
enum EArrowPosition : int {
  NoArrow = 0,
  ArrowTop = 1,    ///< Middle of the top edge.
  ArrowBottom = 2, ///< Middle of the bottom edge.
  ArrowLeft = 3,   ///< Middle of the left edge.
  ArrowRight = 4,  ///< Middle of the right edge.
  ArrowTopLeft = 5,
  ArrowTopRight = 6,
  ArrowBottomRight = 7,
  ArrowBottomLeft = 8,
};

/// The angle at which an arrow points that has none of its own, in degrees: 0 points right, and it grows
/// clockwise on the screen. NoArrow and unknown values give 90, like a fresh SArrowParam.
constexpr int defaultArrowAngle(EArrowPosition position) noexcept {
  switch (position) {
  case ArrowTop:
    return 270;
  case ArrowLeft:
    return 180;
  case ArrowRight:
    return 0;
  case ArrowTopLeft:
    return 225;
  case ArrowTopRight:
    return 315;
  case ArrowBottomRight:
    return 45;
  case ArrowBottomLeft:
    return 135;
  default:
    return 90;
  }
}

/// One arrow of an ArrowedWindow. A plain value, known to QVariant and printable with qDebug().
///
/// @code
/// Vela::UiBase::SArrowParam arrow;
/// arrow.position = Vela::UiBase::ArrowLeft; // the window stands to the right of what it points at
/// arrow.length = 8;
/// popup->SetArrow(arrow);
/// @endcode
struct SArrowParam {
  EArrowPosition position = ArrowBottom;
  /// Size in pixels.
  int length = 10;
  /// Keeps `angle`. Otherwise the window replaces it by the default angle of `position` with each layout.
  bool fixedAngle = false;
  /// Where it points, in degrees clockwise from the right.
  int angle = 90;
  /// The angle between the two edges that meet at the tip, in degrees.
  int tipAngle = 90;
  /// Whether `offset` slides the arrow horizontally, else vertically.
  bool offsetAlongX = true;
  /// How far the anchor is slid along the window's edge, in pixels.
  int offset = 0;
  /// The point of the window, in its coordinates, at which the arrow sits. Filled in by the window.
  QPoint anchor = {};

  friend bool operator==(const SArrowParam&, const SArrowParam&) = default;
};

UI_BASE_EXPORT QDebug operator<<(QDebug debug, const SArrowParam& arrow);

/// A candidate of the search for a place: an arrow, and the side on which the window stands with it.
using ArrowPair = QPair<SArrowParam, EDirection>;

} // namespace Vela::UiBase

Q_DECLARE_METATYPE(Vela::UiBase::EDirection)
Q_DECLARE_METATYPE(Vela::UiBase::EWidgetsAlign)
Q_DECLARE_METATYPE(Vela::UiBase::EArrowPosition)
Q_DECLARE_METATYPE(Vela::UiBase::SArrowParam)
