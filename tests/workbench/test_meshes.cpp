// SPDX-License-Identifier: MIT
#include "test_meshes.h"

#include <QFile>
#include <QString>

#include <cmath>
#include <numbers>

namespace Workbench::Test {
namespace {

constexpr float Pi = std::numbers::pi_v<float>;

/// Points in rows and columns with two triangles in each of n x n cells. With no more points than cells the
/// last cells are those between the last points and the first.
Mesh grid(int cells, int rows, int columns, const std::function<QVector3D(float row, float column)>& place) {
  std::vector<QVector3D> positions;
  for (int row = 0; row < rows; ++row) {
    for (int column = 0; column < columns; ++column)
      positions.push_back(place(float(row) / float(cells), float(column) / float(cells)));
  }
  const auto at = [=](int row, int column) { return std::uint32_t(row % rows * columns + column % columns); };
  std::vector<Mesh::Triangle> triangles;
  for (int i = 0; i < cells * cells; ++i) {
    const int row = i / cells;
    const int column = i % cells;
    triangles.push_back({at(row, column), at(row, column + 1), at(row + 1, column + 1)});
    triangles.push_back({at(row, column), at(row + 1, column + 1), at(row + 1, column)});
  }
  return {positions, triangles};
}

QByteArray lines(const Mesh& mesh, const char* vertex, const char* face, std::uint32_t base) {
  const QString three = QStringLiteral("%1 %2 %3\n");
  QByteArray all;
  for (const QVector3D& p : mesh.positions())
    all += vertex + three.arg(p.x()).arg(p.y()).arg(p.z()).toLatin1();
  for (const Mesh::Triangle& t : mesh.triangles())
    all += face + three.arg(t[0] + base).arg(t[1] + base).arg(t[2] + base).toLatin1();
  return all;
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
  return grid(cells, cells + 1, cells + 1, [=](float row, float column) {
    return QVector3D(half * (2 * column - 1), half * (2 * row - 1), z);
  });
}

Mesh blob(int rings) {
  return grid(rings, rings + 1, rings, [](float row, float column) {
    const float latitude = Pi * row;
    const float longitude = 2 * Pi * column;
    const float radius = 1 + 0.1F * std::sin(7 * longitude) * std::sin(latitude) * std::sin(5 * latitude);
    return radius * QVector3D(std::sin(latitude) * std::cos(longitude), std::cos(latitude),
                              std::sin(latitude) * std::sin(longitude));
  });
}

Mesh torus(int rings) {
  return grid(rings, rings, rings, [](float row, float column) {
    const float around = 2 * Pi * row;
    const float across = 2 * Pi * column;
    const float radius = 2 + std::cos(across);
    return QVector3D(radius * std::cos(around), std::sin(across), radius * std::sin(around));
  });
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

QByteArray objFile(const Mesh& mesh) { return "# a mesh\no thing\n" + lines(mesh, "v ", "f ", 1); }

QByteArray offFile(const Mesh& mesh) {
  const QString counts = QStringLiteral("OFF\n%1 %2 0\n");
  return counts.arg(mesh.positions().size()).arg(mesh.triangles().size()).toLatin1() +
         lines(mesh, "", "3 ", 0);
}

QByteArray storedFile(const char* name) {
  QFile file(QStringLiteral(VLK_TEST_MESHES "/") + QLatin1String(name));
  if (!file.open(QIODevice::ReadOnly))
    qFatal("cannot read %s", name);
  return file.readAll();
}

} // namespace Workbench::Test
