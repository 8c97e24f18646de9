// SPDX-License-Identifier: MIT
#include "mesh.h"

#include <workbench/vector3.h>

#include <stdexcept>
#include <string>

namespace Workbench {
namespace {

Vector3 difference(const QVector3D& a, const QVector3D& b) { return Vector3(a) - Vector3(b); }

QVector3D normalized(const Vector3& v) {
  const double size = length(v);
  return size > 0 ? (v * (1 / size)).toFloat() : QVector3D();
}

// Twice the area, along the normal.
Vector3 areaVector(const std::vector<QVector3D>& positions, const Mesh::Triangle& t) {
  const QVector3D& a = positions[t[0]];
  return cross(difference(positions[t[1]], a), difference(positions[t[2]], a));
}

std::vector<QVector3D> computeVertexNormals(const std::vector<QVector3D>& positions,
                                            const std::vector<Mesh::Triangle>& triangles) {
  std::vector<Vector3> sums(positions.size());
  for (const Mesh::Triangle& triangle : triangles) {
    const Vector3 face = areaVector(positions, triangle);
    for (const std::uint32_t corner : triangle)
      sums[corner] = sums[corner] + face;
  }
  std::vector<QVector3D> normals;
  normals.reserve(sums.size());
  for (const Vector3& sum : sums)
    normals.push_back(normalized(sum));
  return normals;
}

Bounds computeBounds(const std::vector<QVector3D>& positions) {
  if (positions.empty())
    return {};
  Bounds bounds{positions.front(), positions.front()};
  for (const QVector3D& p : positions) {
    for (int axis = 0; axis < 3; ++axis) {
      bounds.min[axis] = std::min(bounds.min[axis], p[axis]);
      bounds.max[axis] = std::max(bounds.max[axis], p[axis]);
    }
  }
  return bounds;
}

void checkIndices(std::size_t vertexCount, const std::vector<Mesh::Triangle>& triangles) {
  for (const Mesh::Triangle& triangle : triangles) {
    for (const std::uint32_t corner : triangle) {
      if (corner >= vertexCount)
        throw std::invalid_argument("A triangle refers to vertex " + std::to_string(corner) + " of " +
                                    std::to_string(vertexCount));
    }
  }
}

} // namespace

Mesh::Mesh() {
  static const auto empty = std::make_shared<const Data>();
  m_data = empty;
}

Mesh::Mesh(std::vector<QVector3D> positions, std::vector<Triangle> triangles) {
  checkIndices(positions.size(), triangles);
  auto data = std::make_shared<Data>();
  data->vertexNormals = computeVertexNormals(positions, triangles);
  data->bounds = computeBounds(positions);
  data->positions = std::move(positions);
  data->triangles = std::move(triangles);
  m_data = std::move(data);
}

QVector3D Mesh::faceNormal(std::size_t triangle) const {
  return normalized(areaVector(positions(), triangles().at(triangle)));
}

double Mesh::faceArea(std::size_t triangle) const {
  return length(areaVector(positions(), triangles().at(triangle))) / 2;
}

double Mesh::area() const {
  double sum = 0;
  for (std::size_t i = 0; i < triangles().size(); ++i)
    sum += faceArea(i);
  return sum;
}

bool Mesh::isClosed() const {
  if (isEmpty())
    return false;
  // An edge's key is the same in both directions except for its lowest bit, so the two halves of a shared
  // edge end up side by side.
  struct HalfEdge {
    std::uint64_t edge;
    bool forward;
    bool operator<(const HalfEdge& other) const {
      return edge != other.edge ? edge < other.edge : forward < other.forward;
    }
  };
  std::vector<HalfEdge> edges;
  edges.reserve(triangles().size() * 3);
  for (const Triangle& triangle : triangles()) {
    for (std::size_t i = 0; i < 3; ++i) {
      const std::uint64_t from = triangle[i];
      const std::uint64_t to = triangle[(i + 1) % 3];
      edges.push_back({std::min(from, to) << 32U | std::max(from, to), from < to});
    }
  }
  std::sort(edges.begin(), edges.end());
  for (std::size_t i = 0; i < edges.size(); i += 2) {
    const bool pair = i + 1 < edges.size() && edges[i].edge == edges[i + 1].edge &&
                      edges[i].forward != edges[i + 1].forward;
    const bool third = i + 2 < edges.size() && edges[i + 2].edge == edges[i].edge;
    if (!pair || third)
      return false;
  }
  return true;
}

std::optional<double> Mesh::volume() const {
  if (!isClosed())
    return std::nullopt;
  // Measured from the middle of the mesh: from a far origin the large terms would cancel badly.
  const QVector3D center = bounds().center();
  double sum = 0;
  for (const Triangle& t : triangles()) {
    const Vector3 a = difference(positions()[t[0]], center);
    const Vector3 b = difference(positions()[t[1]], center);
    const Vector3 c = difference(positions()[t[2]], center);
    sum += dot(a, cross(b, c));
  }
  return sum / 6;
}

} // namespace Workbench
