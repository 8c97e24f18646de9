// SPDX-License-Identifier: MIT
#pragma once

#include <workbench/mesh.h>
#include <workbench/mesh_ops/triangle_selection.h>
#include <workbench/render/lighting.h>
#include <workbench/render/projection.h>
#include <workbench/render/tile.h>
#include <workbench/vector3.h>

#include <array>
#include <cstdint>

namespace Workbench {

/// What of a frame's surfaces is the same for all its tiles. Only refers to the mesh and the selection.
struct SurfaceScene {
  const Mesh& mesh;
  const TriangleSelection& selection;
  Projection projection;
  Lighting lighting;
  EShading shading = SmoothShading;
  float pixelSize = 1; ///< In samples.
};

/// Finds the light of the surface points that are seen in a tile. Remembers the faces of the last rows, so
/// each is worked out once or twice only; each tile has its own.
class SurfaceShader {
public:
  /// @param origin  the corner of the tile; the shader is used no longer than @p scene lives.
  SurfaceShader(const SurfaceScene& scene, const QPoint& origin);

  /// Light of what is seen of @p triangle at a sample, counted from the corner of the tile.
  QVector3D shade(std::uint32_t triangle, int x, int y);

private:
  static constexpr std::size_t Slots = 64;

  // A function that is linear over the frame.
  struct Plane {
    float base = 0; // at the sample in the tile's corner
    float slopeX = 0;
    float slopeY = 0;
    float at(int x, int y) const { return base + slopeX * float(x) + slopeY * float(y); }
  };
  struct Face {
    std::uint32_t triangle = Tile::NoTriangle;
    Material material = {};
    QVector3D light;  // of a flat face
    QVector3D normal; // towards the eye
    // Of smooth faces: how much each corner counts. With edges: how far the edge across from it is, in
    // pixels.
    std::array<Plane, 3> corners;
    std::array<QVector3D, 3> normals; // towards the eye
    float edgeStrength = 0;
  };

  void setUp(Face& face, std::uint32_t triangle) const;
  void setUpNormals(Face& face, const Mesh::Triangle& corners, bool backSide) const;
  void setUpEdges(Face& face, const std::array<Vector3, 3>& points, double determinant) const;
  Plane planeOf(const Vector3& side, double scale) const;
  QVector3D normalAt(const Face& face, int x, int y) const;
  QVector3D withEdges(const Face& face, int x, int y) const;

  const SurfaceScene& m_scene;
  Vector3 m_direction; // from the eye through the sample in the tile's corner, to depth 1
  Vector3 m_stepX;     // to the next sample
  Vector3 m_stepY;
  std::array<Face, Slots> m_faces;
};

// Here, as every sample calls them.
inline QVector3D SurfaceShader::normalAt(const Face& face, int x, int y) const {
  // Only the proportions of the weights matter. Outside the triangle, where the rim of a sliver may be, one
  // is negative.
  const float a = std::max(face.corners[0].at(x, y), 0.0F);
  const float b = std::max(face.corners[1].at(x, y), 0.0F);
  const float c = std::max(face.corners[2].at(x, y), 0.0F);
  const QVector3D normal = face.normals[0] * a + face.normals[1] * b + face.normals[2] * c;
  const float square = QVector3D::dotProduct(normal, normal);
  return square > 0 ? normal * (1 / std::sqrt(square)) : face.normal;
}

inline QVector3D SurfaceShader::shade(std::uint32_t triangle, int x, int y) {
  Face& face = m_faces[triangle % Slots];
  if (face.triangle != triangle)
    setUp(face, triangle);
  switch (m_scene.shading) {
  case SmoothShading:
    return m_scene.lighting.shade(normalAt(face, x, y), face.material);
  case FlatShadingWithEdges:
    return withEdges(face, x, y);
  default:
    return face.light;
  }
}

} // namespace Workbench
