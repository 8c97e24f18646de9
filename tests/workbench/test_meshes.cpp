// SPDX-License-Identifier: MIT
#include "test_meshes.h"

#include <cmath>
#include <numbers>

namespace Workbench::Test {
namespace {

constexpr float Pi = std::numbers::pi_v<float>;

struct Count {
  int rows;
  int columns;
};

/// Points in rows and columns with two triangles in each cell. With as many cells as points in a direction
/// the last ones are those between the last points and the first.
Mesh grid(Count points, Count cells, const std::function<QVector3D(float row, float column)>& place) {
  std::vector<QVector3D> positions;
  for (int row = 0; row < points.rows; ++row) {
    for (int column = 0; column < points.columns; ++column)
      positions.push_back(place(float(row) / float(cells.rows), float(column) / float(cells.columns)));
  }
  const auto at = [points](int row, int column) {
    return std::uint32_t(row % points.rows * points.columns + column % points.columns);
  };
  std::vector<Mesh::Triangle> triangles;
  for (int row = 0; row < cells.rows; ++row) {
    for (int column = 0; column < cells.columns; ++column) {
      triangles.push_back({at(row, column), at(row, column + 1), at(row + 1, column + 1)});
      triangles.push_back({at(row, column), at(row + 1, column + 1), at(row + 1, column)});
    }
  }
  return {positions, triangles};
}

QVector3D onSphere(float latitude, float longitude) {
  return {std::sin(latitude) * std::cos(longitude), std::cos(latitude),
          std::sin(latitude) * std::sin(longitude)};
}

} // namespace

Mesh cube(float edge) {
  const float h = edge / 2;
  std::vector<QVector3D> corners;
  for (int i = 0; i < 8; ++i)
    corners.emplace_back((i & 1) != 0 ? h : -h, (i & 2) != 0 ? h : -h, (i & 4) != 0 ? h : -h);
  const std::vector<Mesh::Triangle> sides = {{0, 2, 3}, {0, 3, 1}, {4, 5, 7}, {4, 7, 6},
                                             {0, 1, 5}, {0, 5, 4}, {2, 6, 7}, {2, 7, 3},
                                             {0, 4, 6}, {0, 6, 2}, {1, 3, 7}, {1, 7, 5}};
  return {corners, sides};
}

Mesh square(float half, int cells, float z) {
  return grid({cells + 1, cells + 1}, {cells, cells}, [=](float row, float column) {
    return QVector3D(half * (2 * column - 1), half * (2 * row - 1), z);
  });
}

Mesh blob(int rings) {
  return grid({rings + 1, rings}, {rings, rings}, [](float row, float column) {
    const float latitude = Pi * row;
    const float longitude = 2 * Pi * column;
    return onSphere(latitude, longitude) *
           (1 + 0.1F * std::sin(7 * longitude) * std::sin(latitude) * std::sin(5 * latitude));
  });
}

Mesh sphere(int rings) {
  const auto n = std::uint32_t(rings);
  const Mesh middle = grid({rings - 1, rings}, {rings - 2, rings}, [n](float row, float column) {
    return onSphere(Pi * (1 + row * float(n - 2)) / float(n), 2 * Pi * column);
  });
  std::vector<QVector3D> points = middle.positions();
  std::vector<Mesh::Triangle> triangles = middle.triangles();
  const auto north = std::uint32_t(points.size());
  for (const float pole : {1.0F, -1.0F})
    points.emplace_back(0, pole, 0);
  for (std::uint32_t u = 0; u < n; ++u) {
    const std::uint32_t next = (u + 1) % n;
    triangles.push_back({north, next, u});
    triangles.push_back({north + 1, north - n + u, north - n + next});
  }
  return {points, triangles};
}

Mesh merged(const Mesh& first, const Mesh& second) {
  std::vector<QVector3D> positions = first.positions();
  positions.insert(positions.end(), second.positions().begin(), second.positions().end());
  std::vector<Mesh::Triangle> triangles = first.triangles();
  const auto offset = std::uint32_t(first.positions().size());
  for (const Mesh::Triangle& t : second.triangles())
    triangles.push_back({t[0] + offset, t[1] + offset, t[2] + offset});
  return {positions, triangles};
}

Mesh moved(const Mesh& mesh, const std::function<QVector3D(const QVector3D&)>& place) {
  std::vector<QVector3D> positions;
  for (const QVector3D& position : mesh.positions())
    positions.push_back(place(position));
  return {positions, mesh.triangles()};
}

} // namespace Workbench::Test
