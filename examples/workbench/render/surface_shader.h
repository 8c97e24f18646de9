// SPDX-License-Identifier: MIT
#pragma once

#include <workbench/mesh.h>
#include <workbench/mesh_ops/triangle_selection.h>
#include <workbench/render/lighting.h>
#include <workbench/render/projection.h>

#include <array>
#include <cstdint>

namespace Workbench {

/// Finds the light of surface points of a mesh. Remembers the last triangle, so neighbouring samples are
/// cheap; each thread uses its own.
class SurfaceShader {
public:
  SurfaceShader(const Mesh& mesh, const Projection& projection, const Lighting& lighting,
                const TriangleSelection& selection, EShading shading);

  /// Light of what is seen of @p triangle at a position of the frame, where it has a depth.
  QVector3D shade(std::uint32_t triangle, float x, float y, float inverseDepth);

private:
  void select(std::uint32_t triangle);
  QVector3D normalAt(const QVector3D& fromCorner) const;

  const Mesh& m_mesh;
  const Projection& m_projection;
  const Lighting& m_lighting;
  const TriangleSelection& m_selection;
  EShading m_shading;

  // The triangle selected last.
  std::uint32_t m_triangle;
  bool m_backSide = false;
  QVector3D m_faceNormal; // towards the eye
  QVector3D m_flatLight;
  QVector3D m_corner;    // its first corner, seen from the eye
  QVector3D m_gradientB; // weight of the second corner, by position
  QVector3D m_gradientC;
  std::array<QVector3D, 3> m_normals;
};

} // namespace Workbench
