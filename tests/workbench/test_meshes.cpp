// SPDX-License-Identifier: MIT
#include "test_meshes.h"

#include <cmath>
#include <numbers>

namespace Workbench::Test {

Mesh cube(float edge) {
  const float h = edge / 2;
  std::vector<QVector3D> corners;
  for (int i = 0; i < 8; ++i)
    corners.emplace_back((i & 1) != 0 ? h : -h, (i & 2) != 0 ? h : -h, (i & 4) != 0 ? h : -h);
  return {corners,
          {{0, 2, 3},
           {0, 3, 1},
           {4, 5, 7},
           {4, 7, 6},
           {0, 1, 5},
           {0, 5, 4},
           {2, 6, 7},
           {2, 7, 3},
           {0, 4, 6},
           {0, 6, 2},
           {1, 3, 7},
           {1, 7, 5}}};
}

Mesh square(float half, int cells, float z) {
  std::vector<QVector3D> points;
  for (int row = 0; row <= cells; ++row) {
    for (int column = 0; column <= cells; ++column)
      points.emplace_back(half * (2 * float(column) / float(cells) - 1),
                          half * (2 * float(row) / float(cells) - 1), z);
  }
  std::vector<Mesh::Triangle> triangles;
  const auto stride = std::uint32_t(cells + 1);
  for (std::uint32_t row = 0; row + 1 < stride; ++row) {
    for (std::uint32_t column = 0; column + 1 < stride; ++column) {
      const std::uint32_t corner = row * stride + column;
      triangles.push_back({corner, corner + 1, corner + stride + 1});
      triangles.push_back({corner, corner + stride + 1, corner + stride});
    }
  }
  return {points, triangles};
}

Mesh blob(int rings) {
  constexpr double Pi = std::numbers::pi;
  std::vector<QVector3D> points;
  for (int v = 0; v <= rings; ++v) {
    for (int u = 0; u < rings; ++u) {
      const double latitude = Pi * v / rings;
      const double longitude = 2 * Pi * u / rings;
      const double radius = 1 + 0.1 * std::sin(7 * longitude) * std::sin(latitude) * std::sin(5 * latitude);
      points.emplace_back(float(radius * std::sin(latitude) * std::cos(longitude)),
                          float(radius * std::cos(latitude)),
                          float(radius * std::sin(latitude) * std::sin(longitude)));
    }
  }
  std::vector<Mesh::Triangle> triangles;
  const auto n = std::uint32_t(rings);
  for (std::uint32_t v = 0; v < n; ++v) {
    for (std::uint32_t u = 0; u < n; ++u) {
      const std::uint32_t a = v * n + u;
      const std::uint32_t b = v * n + (u + 1) % n;
      triangles.push_back({a, b, b + n});
      triangles.push_back({a, b + n, a + n});
    }
  }
  return {points, triangles};
}

Mesh sphere(int rings) {
  constexpr double Pi = std::numbers::pi;
  const auto n = std::uint32_t(rings);
  std::vector<QVector3D> points{{0, 1, 0}, {0, -1, 0}};
  for (int v = 1; v < rings; ++v) {
    for (int u = 0; u < rings; ++u) {
      const double latitude = Pi * v / rings;
      const double longitude = 2 * Pi * u / rings;
      points.emplace_back(float(std::sin(latitude) * std::cos(longitude)), float(std::cos(latitude)),
                          float(-std::sin(latitude) * std::sin(longitude)));
    }
  }
  std::vector<Mesh::Triangle> triangles;
  const auto at = [n](std::uint32_t v, std::uint32_t u) { return 2 + (v - 1) * n + u % n; };
  for (std::uint32_t u = 0; u < n; ++u) {
    triangles.push_back({0, at(1, u), at(1, u + 1)});
    triangles.push_back({1, at(n - 1, u + 1), at(n - 1, u)});
    for (std::uint32_t v = 1; v + 1 < n; ++v) {
      triangles.push_back({at(v, u), at(v + 1, u), at(v + 1, u + 1)});
      triangles.push_back({at(v, u), at(v + 1, u + 1), at(v, u + 1)});
    }
  }
  return {points, triangles};
}

Mesh torus(int rings) {
  constexpr double Pi = std::numbers::pi;
  const auto n = std::uint32_t(rings);
  std::vector<QVector3D> points;
  std::vector<Mesh::Triangle> triangles;
  for (std::uint32_t u = 0; u < n; ++u) {
    for (std::uint32_t v = 0; v < n; ++v) {
      const double around = 2 * Pi * u / n;
      const double tube = 2 * Pi * v / n;
      const double radius = 1 + 0.4 * std::cos(tube);
      points.emplace_back(float(radius * std::cos(around)), float(0.4 * std::sin(tube)),
                          float(radius * std::sin(around)));
      const std::uint32_t nextU = (u + 1) % n * n;
      const std::uint32_t nextV = (v + 1) % n;
      triangles.push_back({u * n + v, u * n + nextV, nextU + nextV});
      triangles.push_back({u * n + v, nextU + nextV, nextU + v});
    }
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

} // namespace Workbench::Test
