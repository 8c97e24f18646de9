// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>

class QPalette;

namespace Workbench {

/// How a mesh is drawn: shading and colours.
struct RenderStyle {
  bool smooth = true;      ///< Interpolated vertex normals; false: one normal a face.
  QColor surface;          ///< The material of the side that faces out.
  QColor backSide;         ///< The material of the inside, seen through holes.
  QColor backgroundTop;    ///< The background runs from this colour,
  QColor backgroundBottom; ///< to this one at the lower edge.

  /// Colours that suit a light or a dark palette.
  static RenderStyle forPalette(const QPalette& palette);

  friend bool operator==(const RenderStyle&, const RenderStyle&) = default;
};

} // namespace Workbench
