// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/popups/arrow_param.h>

#include <QMargins>
#include <QPainterPath>
#include <QPen>
#include <QRect>
#include <QSize>

namespace Vela::UiBase {

/// What a window with an arrow is laid out for. Sizes are in pixels.
struct ArrowFrame {
  QSize content;
  int contentMargin = 0;
  int cornerRadius = 0;
  /// The border. A width of 0 is one pixel of the device.
  QPen border;
  /// Kept free around body and arrow.
  QMargins room;
  /// Pixels of the device to a pixel.
  qreal pixelRatio = 1.0;

  friend bool operator==(const ArrowFrame&, const ArrowFrame&) = default;
};

/// Where everything lies, in the coordinates of the window. Only the outline depends on the pixel ratio.
struct ArrowLayout {
  QSize size;
  /// The body without the arrow, with the border.
  QRect bounds;
  /// At least as large as asked for: it grows where the body would be too small for arrow and corners.
  QRect content;
  /// What the content must have at least.
  QSize smallestContent;
  /// The outermost pixel of the arrow; (0, 0) without an arrow.
  QPoint tip;
  /// Body and arrow in one, along the middle of the border.
  QPainterPath outline;
  /// What the border covers.
  QPainterPath border;
  /// The arrow as it was laid out.
  SArrowParam arrow;
};

/// The arrow with the angle and the anchor that it has at this rectangle.
SArrowParam normalizedArrow(SArrowParam arrow, const QRect& content);

/// Where everything lies, without the paths. Without an arrow when its position is NoArrow.
ArrowLayout measureArrow(const ArrowFrame& frame, const SArrowParam& arrow);
/// Adds the paths to what was measured for the frame.
void drawArrow(const ArrowFrame& frame, ArrowLayout& layout);

} // namespace Vela::UiBase
