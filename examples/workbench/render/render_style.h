// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>

class QPalette;

namespace Workbench {

/// How the faces of a mesh are drawn.
enum EShading : int {
  SmoothShading = 0, ///< Normals interpolated between the vertices.
  FlatShading = 1,   ///< One normal a face.
  /// Flat, with the edges of the faces that are seen. They fade where faces get tiny.
  FlatShadingWithEdges = 2,
};

/// How a mesh is drawn: shading and colours.
struct RenderStyle {
  EShading shading = SmoothShading;
  QColor surface;          ///< The material of the side that faces out.
  QColor backSide;         ///< The material of the inside, seen through holes.
  QColor selected;         ///< The material of selected triangles, outside
  QColor selectedBackSide; ///< and inside.
  QColor edges;            ///< The lines between faces.
  QColor backgroundTop;    ///< The background runs from this colour,
  QColor backgroundBottom; ///< to this one at the lower edge.

  /// Colours that suit a light or a dark palette.
  static RenderStyle forPalette(const QPalette& palette);

  friend bool operator==(const RenderStyle&, const RenderStyle&) = default;
};

} // namespace Workbench
