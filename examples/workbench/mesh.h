// SPDX-License-Identifier: MIT
#pragma once

#include <QVector3D>

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

namespace Workbench {

/// An axis-aligned box. Both corners are (0, 0, 0) when nothing was bounded.
struct Bounds {
  QVector3D min;
  QVector3D max;

  QVector3D center() const { return min * 0.5F + max * 0.5F; }
  QVector3D size() const { return max - min; }
};

/// An indexed triangle mesh.
///
/// A value: copies share the same immutable data, so handing a mesh to another thread or keeping the one on
/// screen beside its successor costs a pointer. Normals and bounds are computed once, on construction.
///
/// @code
/// const Mesh triangle({{0, 0, 0}, {1, 0, 0}, {0, 1, 0}}, {{0, 1, 2}});
/// double area = triangle.area(); // 0.5
/// @endcode
class Mesh {
public:
  /// Corner indices into positions(), counter-clockwise seen from outside.
  using Triangle = std::array<std::uint32_t, 3>;

  /// The empty mesh.
  Mesh();
  /// Takes the vertices and triangles over.
  /// @throws std::invalid_argument when a triangle names a vertex that does not exist.
  Mesh(std::vector<QVector3D> positions, std::vector<Triangle> triangles);

  bool isEmpty() const noexcept { return triangles().empty(); }
  /// Whether both share their data: one is a copy of the other. Equal meshes that were made apart do not.
  bool isCopyOf(const Mesh& other) const noexcept { return m_data == other.m_data; }
  const std::vector<QVector3D>& positions() const noexcept { return m_data->positions; }
  const std::vector<Triangle>& triangles() const noexcept { return m_data->triangles; }

  /// One unit normal a vertex: the mean of the adjoining faces, weighted by their areas. The null vector at
  /// a vertex without a face that has an area.
  const std::vector<QVector3D>& vertexNormals() const noexcept { return m_data->vertexNormals; }
  /// Unit normal of a triangle; the null vector when the triangle has no area.
  QVector3D faceNormal(std::size_t triangle) const;
  /// In square units of the positions.
  double faceArea(std::size_t triangle) const;

  const Bounds& bounds() const noexcept { return m_data->bounds; }

  /// Sum of the triangles' areas, in square units of the positions.
  double area() const;
  /// Every edge belongs to exactly two triangles that run along it in opposite directions.
  bool isClosed() const;
  /// The enclosed volume in cubic units, negative when the faces are inside out; nothing for a mesh that is
  /// not closed.
  std::optional<double> volume() const;

private:
  struct Data {
    std::vector<QVector3D> positions;
    std::vector<Triangle> triangles;
    std::vector<QVector3D> vertexNormals;
    Bounds bounds;
  };

  std::shared_ptr<const Data> m_data;
};

} // namespace Workbench
