// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/popups/arrow_outline.h>

#include <QPointF>
#include <QtMath>

#include <algorithm>
#include <cmath>

/// What laying a window out and drawing its outline have in common.
namespace Vela::UiBase::ArrowGeometry {

constexpr double SmallestTipAngle = 20.0;
constexpr double LargestTipAngle = 150.0;
/// An arrow stands on a corner when it points this evenly away from both of its edges.
constexpr double CornerEvenness = 0.2;

inline QPointF directionOf(int angle) {
  const double radians = qDegreesToRadians(double(angle));
  return {std::cos(radians), std::sin(radians)};
}

inline double halfTipAngle(const SArrowParam& arrow) {
  return qDegreesToRadians(std::clamp(double(arrow.tipAngle), SmallestTipAngle, LargestTipAngle)) / 2;
}

inline double strokeWidth(const ArrowFrame& frame) {
  if (frame.border.style() == Qt::NoPen)
    return 0;
  return frame.border.widthF() > 0 ? frame.border.widthF() : 1.0 / frame.pixelRatio;
}

} // namespace Vela::UiBase::ArrowGeometry
