// SPDX-License-Identifier: MIT
#pragma once

#include <workbench/mesh.h>
#include <workbench/vector3.h>

#include <utility>
#include <vector>

namespace Workbench {

/// A mesh whose edges can be contracted one by one while its surface stays one.
///
/// Positions are in double precision and count from the middle of the mesh.
class CollapsibleMesh {
public:
  using Edge = std::pair<std::uint32_t, std::uint32_t>;

  explicit CollapsibleMesh(const Mesh& mesh);

  /// How many triangles are left.
  std::size_t triangleCount() const noexcept { return m_triangleCount; }
  std::size_t vertexCount() const noexcept { return m_positions.size(); }
  const Vector3& position(std::uint32_t vertex) const { return m_positions[vertex]; }
  const Mesh::Triangle& triangle(std::uint32_t index) const { return m_triangles[index]; }
  /// The triangles left around a vertex.
  const std::vector<std::uint32_t>& trianglesAt(std::uint32_t vertex) const { return m_around[vertex]; }
  /// Twice the area of a triangle, along its normal.
  Vector3 areaVector(std::uint32_t triangle) const;
  /// Each edge once, the lower vertex first, in ascending order.
  std::vector<Edge> edges() const;
  /// The edges of one triangle only.
  std::vector<Edge> borderEdges() const;
  /// The vertices on the other ends of a vertex's edges.
  void neighbors(std::uint32_t vertex, std::vector<std::uint32_t>& result) const;

  /// Whether @p from and @p into may become one vertex at @p place: the surface neither branches, closes a
  /// hole, loses a part nor turns a face over.
  bool canCollapse(std::uint32_t from, std::uint32_t into, const Vector3& place);
  void collapse(std::uint32_t from, std::uint32_t into, const Vector3& place);

  /// What is left, without unused vertices, in the old order.
  Mesh result() const;

private:
  enum Role : char { Inside, Border, Fixed };

  bool keepsTopology(std::uint32_t a, std::uint32_t b);
  bool keepsFaces(std::uint32_t moved, std::uint32_t other, const Vector3& place) const;
  template <typename Visitor>
  void visitEdges(Visitor&& visit) const;

  Vector3 m_center;
  std::vector<Vector3> m_positions;
  std::vector<Mesh::Triangle> m_triangles;
  std::vector<std::vector<std::uint32_t>> m_around; // empty for a vertex that is gone
  std::vector<char> m_isGone;                       // of triangles
  std::vector<Role> m_role;
  std::size_t m_triangleCount = 0;
  std::vector<std::uint32_t> m_neighborsOfA; // of the edge asked for last
  std::vector<std::uint32_t> m_neighborsOfB;
};

} // namespace Workbench
