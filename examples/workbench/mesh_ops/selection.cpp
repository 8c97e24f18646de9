// SPDX-License-Identifier: MIT
#include "selection.h"

#include <numeric>
#include <stdexcept>

namespace Workbench {
namespace {

void checkSize(const Mesh& mesh, const TriangleSelection& selection) {
  if (selection.size() != mesh.triangles().size())
    throw std::invalid_argument("A selection of another mesh");
}

// Sets of vertices that hang together; each is known by one of its vertices.
class VertexSets {
public:
  explicit VertexSets(std::size_t vertices) : m_parent(vertices) {
    std::iota(m_parent.begin(), m_parent.end(), 0U);
  }

  std::uint32_t find(std::uint32_t vertex) {
    while (m_parent[vertex] != vertex) {
      m_parent[vertex] = m_parent[m_parent[vertex]];
      vertex = m_parent[vertex];
    }
    return vertex;
  }
  void join(std::uint32_t a, std::uint32_t b) {
    const std::uint32_t rootOfA = find(a);
    const std::uint32_t rootOfB = find(b);
    m_parent[std::max(rootOfA, rootOfB)] = std::min(rootOfA, rootOfB);
  }

private:
  std::vector<std::uint32_t> m_parent;
};

} // namespace

TriangleSelection selectConnected(const Mesh& mesh, std::size_t seed) {
  const auto& triangles = mesh.triangles();
  const std::uint32_t first = triangles.at(seed)[0];
  VertexSets sets(mesh.positions().size());
  for (const Mesh::Triangle& t : triangles) {
    sets.join(t[0], t[1]);
    sets.join(t[0], t[2]);
  }
  const std::uint32_t part = sets.find(first);
  TriangleSelection result(triangles.size());
  for (std::size_t i = 0; i < triangles.size(); ++i) {
    if (sets.find(triangles[i][0]) == part)
      result.set(i);
  }
  return result;
}

TriangleSelection grown(const Mesh& mesh, const TriangleSelection& selection) {
  checkSize(mesh, selection);
  const auto& triangles = mesh.triangles();
  std::vector<bool> touched(mesh.positions().size());
  for (const std::uint32_t i : selection.triangles()) {
    for (const std::uint32_t corner : triangles[i])
      touched[corner] = true;
  }
  TriangleSelection result(triangles.size());
  for (std::size_t i = 0; i < triangles.size(); ++i) {
    const Mesh::Triangle& t = triangles[i];
    if (touched[t[0]] || touched[t[1]] || touched[t[2]])
      result.set(i);
  }
  return result;
}

TriangleSelection shrunk(const Mesh& mesh, const TriangleSelection& selection) {
  TriangleSelection rest = selection;
  rest.invert();
  rest = grown(mesh, rest);
  rest.invert();
  return rest;
}

TriangleSelection trianglesInside(const Mesh& mesh, const Camera& camera, const QRectF& rectangle,
                                  const QSizeF& viewport) {
  const QRectF area = rectangle.normalized();
  const auto& triangles = mesh.triangles();
  const auto& positions = mesh.positions();
  TriangleSelection result(triangles.size());
  for (std::size_t i = 0; i < triangles.size(); ++i) {
    const Mesh::Triangle& t = triangles[i];
    const QVector3D centroid = positions[t[0]] / 3 + positions[t[1]] / 3 + positions[t[2]] / 3;
    const auto seen = camera.project(centroid, viewport);
    if (seen && area.contains(*seen))
      result.set(i);
  }
  return result;
}

Mesh withoutTriangles(const Mesh& mesh, const TriangleSelection& selection) {
  checkSize(mesh, selection);
  TriangleSelection kept = selection;
  kept.invert();
  std::vector<Mesh::Triangle> triangles;
  triangles.reserve(kept.count());
  std::vector<bool> needed(mesh.positions().size());
  for (const std::uint32_t i : kept.triangles()) {
    triangles.push_back(mesh.triangles()[i]);
    for (const std::uint32_t corner : triangles.back())
      needed[corner] = true;
  }
  std::vector<QVector3D> positions;
  std::vector<std::uint32_t> newIndex(needed.size());
  for (std::size_t v = 0; v < needed.size(); ++v) {
    if (!needed[v])
      continue;
    newIndex[v] = std::uint32_t(positions.size());
    positions.push_back(mesh.positions()[v]);
  }
  for (Mesh::Triangle& t : triangles)
    t = {newIndex[t[0]], newIndex[t[1]], newIndex[t[2]]};
  return {std::move(positions), std::move(triangles)};
}

double areaOf(const Mesh& mesh, const TriangleSelection& selection) {
  checkSize(mesh, selection);
  double sum = 0;
  for (const std::uint32_t i : selection.triangles())
    sum += mesh.faceArea(i);
  return sum;
}

} // namespace Workbench
