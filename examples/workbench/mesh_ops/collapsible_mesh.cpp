// SPDX-License-Identifier: MIT
#include "collapsible_mesh.h"

#include <algorithm>

namespace Workbench {
namespace {

// The least cosine between a face's normals before and after a contraction.
constexpr double LeastTurn = 0.2;

bool holds(const Mesh::Triangle& t, std::uint32_t vertex) {
  return t[0] == vertex || t[1] == vertex || t[2] == vertex;
}

void sortUnique(std::vector<std::uint32_t>& values) {
  std::sort(values.begin(), values.end());
  values.erase(std::unique(values.begin(), values.end()), values.end());
}

} // namespace

CollapsibleMesh::CollapsibleMesh(const Mesh& mesh)
    : m_center(mesh.bounds().center()),
      m_triangles(mesh.triangles()),
      m_around(mesh.positions().size()),
      m_isGone(mesh.triangles().size()),
      m_role(mesh.positions().size(), Inside) {
  m_positions.reserve(mesh.positions().size());
  for (const QVector3D& p : mesh.positions())
    m_positions.push_back(Vector3(p) - m_center);
  for (std::size_t i = 0; i < m_triangles.size(); ++i) {
    const Mesh::Triangle& t = m_triangles[i];
    m_isGone[i] = t[0] == t[1] || t[1] == t[2] || t[2] == t[0];
    if (m_isGone[i])
      continue;
    ++m_triangleCount;
    for (const std::uint32_t corner : t)
      m_around[corner].push_back(std::uint32_t(i));
  }
  visitEdges([this](const Edge& edge, std::size_t triangles) {
    for (const std::uint32_t end : {edge.first, edge.second}) {
      if (triangles > 2)
        m_role[end] = Fixed;
      else if (triangles == 1 && m_role[end] == Inside)
        m_role[end] = Border;
    }
  });
}

Vector3 CollapsibleMesh::areaVector(std::uint32_t triangle) const {
  const Mesh::Triangle& t = m_triangles[triangle];
  const Vector3& a = m_positions[t[0]];
  return cross(m_positions[t[1]] - a, m_positions[t[2]] - a);
}

// Calls visit(edge, number of its triangles) for each edge, in ascending order.
template <typename Visitor>
void CollapsibleMesh::visitEdges(Visitor&& visit) const {
  std::vector<std::uint32_t> higher;
  for (std::uint32_t v = 0; v < m_around.size(); ++v) {
    higher.clear();
    for (const std::uint32_t triangle : m_around[v]) {
      for (const std::uint32_t corner : m_triangles[triangle]) {
        if (corner > v)
          higher.push_back(corner);
      }
    }
    std::sort(higher.begin(), higher.end());
    for (auto it = higher.begin(); it != higher.end();) {
      const auto end = std::upper_bound(it, higher.end(), *it);
      visit(Edge(v, *it), std::size_t(end - it));
      it = end;
    }
  }
}

std::vector<CollapsibleMesh::Edge> CollapsibleMesh::edges() const {
  std::vector<Edge> result;
  result.reserve(m_triangleCount * 3 / 2);
  visitEdges([&result](const Edge& edge, std::size_t) { result.push_back(edge); });
  return result;
}

std::vector<CollapsibleMesh::Edge> CollapsibleMesh::borderEdges() const {
  std::vector<Edge> result;
  visitEdges([&result](const Edge& edge, std::size_t triangles) {
    if (triangles == 1)
      result.push_back(edge);
  });
  return result;
}

void CollapsibleMesh::neighbors(std::uint32_t vertex, std::vector<std::uint32_t>& result) const {
  result.clear();
  for (const std::uint32_t triangle : m_around[vertex]) {
    for (const std::uint32_t corner : m_triangles[triangle]) {
      if (corner != vertex)
        result.push_back(corner);
    }
  }
  sortUnique(result);
}

bool CollapsibleMesh::canCollapse(std::uint32_t from, std::uint32_t into, const Vector3& place) {
  return keepsTopology(from, into) && keepsFaces(from, into, place) && keepsFaces(into, from, place);
}

bool CollapsibleMesh::keepsTopology(std::uint32_t a, std::uint32_t b) {
  if (m_role[a] == Fixed || m_role[b] == Fixed)
    return false;
  const auto shared =
      std::size_t(std::count_if(m_around[a].begin(), m_around[a].end(),
                                [&](std::uint32_t triangle) { return holds(m_triangles[triangle], b); }));
  const bool bothOnBorder = m_role[a] == Border && m_role[b] == Border;
  // Between two borders the surface would be cut in two; on a border the edge has to be one of it.
  if (shared != (bothOnBorder ? 1U : 2U))
    return false;
  // What is left around the vertex has to be more than one triangle folded onto another, or nothing.
  const std::size_t left = m_around[a].size() + m_around[b].size() - 2 * shared;
  const bool onBorder = m_role[a] == Border || m_role[b] == Border;
  if (left < (onBorder ? 1U : 3U))
    return false;
  // The ends may have no neighbours in common but the third corners of the edge's triangles.
  neighbors(a, m_neighborsOfA);
  neighbors(b, m_neighborsOfB);
  const auto isCommon = [this](std::uint32_t vertex) {
    return std::binary_search(m_neighborsOfB.begin(), m_neighborsOfB.end(), vertex);
  };
  return std::size_t(std::count_if(m_neighborsOfA.begin(), m_neighborsOfA.end(), isCommon)) == shared;
}

// The triangles around @p moved that stay keep their side.
bool CollapsibleMesh::keepsFaces(std::uint32_t moved, std::uint32_t other, const Vector3& place) const {
  for (const std::uint32_t triangle : m_around[moved]) {
    const Mesh::Triangle& t = m_triangles[triangle];
    if (holds(t, other))
      continue;
    const std::size_t at = t[0] == moved ? 0 : t[1] == moved ? 1 : 2;
    const Vector3& b = m_positions[t[(at + 1) % 3]];
    const Vector3& c = m_positions[t[(at + 2) % 3]];
    const Vector3 before = cross(b - m_positions[moved], c - m_positions[moved]);
    const Vector3 after = cross(b - place, c - place);
    const double sizeBefore = length(before);
    const double sizeAfter = length(after);
    // A face without an area before has no side to lose.
    if (sizeBefore > 0 && !(dot(before, after) > LeastTurn * sizeBefore * sizeAfter))
      return false;
  }
  return true;
}

void CollapsibleMesh::collapse(std::uint32_t from, std::uint32_t into, const Vector3& place) {
  for (const std::uint32_t triangle : m_around[from]) {
    Mesh::Triangle& t = m_triangles[triangle];
    if (holds(t, into)) {
      m_isGone[triangle] = true;
      --m_triangleCount;
      for (const std::uint32_t corner : t) {
        if (corner != from)
          std::erase(m_around[corner], triangle);
      }
    } else {
      std::replace(t.begin(), t.end(), from, into);
      m_around[into].push_back(triangle);
    }
  }
  std::vector<std::uint32_t>().swap(m_around[from]);
  m_positions[into] = place;
  if (m_role[from] == Border)
    m_role[into] = Border;
}

Mesh CollapsibleMesh::result() const {
  std::vector<QVector3D> positions;
  std::vector<std::uint32_t> newIndex(m_positions.size());
  for (std::size_t v = 0; v < m_positions.size(); ++v) {
    if (m_around[v].empty())
      continue;
    newIndex[v] = std::uint32_t(positions.size());
    positions.push_back((m_positions[v] + m_center).toFloat());
  }
  std::vector<Mesh::Triangle> triangles;
  triangles.reserve(m_triangleCount);
  for (std::size_t i = 0; i < m_triangles.size(); ++i) {
    const Mesh::Triangle& t = m_triangles[i];
    if (!m_isGone[i])
      triangles.push_back({newIndex[t[0]], newIndex[t[1]], newIndex[t[2]]});
  }
  return {std::move(positions), std::move(triangles)};
}

} // namespace Workbench
