// SPDX-License-Identifier: MIT
#include "test_meshes.h"

#include <support/test_case.h>

using namespace Workbench;

class MeshTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void measuresFarFromTheOriginAsWell() {
    std::vector<QVector3D> moved = Test::cube(2).positions();
    for (QVector3D& p : moved)
      p += QVector3D(100000, -200000, 300000);
    const Mesh cube(moved, Test::cube(2).triangles());
    QCOMPARE(cube.area(), 24.0);
    QCOMPARE(cube.volume().value(), 8.0);
  }

  void onlyAClosedMeshHasAVolume_data() {
    QTest::addColumn<std::vector<Mesh::Triangle>>("triangles");
    const std::vector<Mesh::Triangle> cube = Test::cube(1).triangles();
    QTest::newRow("hole") << std::vector(cube.begin() + 1, cube.end());
    std::vector<Mesh::Triangle> flipped = cube;
    std::swap(flipped[3][0], flipped[3][1]);
    QTest::newRow("one face inside out") << flipped;
    std::vector<Mesh::Triangle> fin = cube;
    fin.push_back({0, 1, 7});
    QTest::newRow("edge of three faces") << fin;
    std::vector<Mesh::Triangle> twice = cube;
    twice.insert(twice.end(), cube.begin(), cube.end());
    QTest::newRow("every face twice") << twice;
    QTest::newRow("nothing") << std::vector<Mesh::Triangle>();
  }
  void onlyAClosedMeshHasAVolume() {
    QFETCH(std::vector<Mesh::Triangle>, triangles);
    const Mesh mesh(Test::cube(1).positions(), triangles);
    QVERIFY(!mesh.isClosed());
    QVERIFY(!mesh.volume());
  }

  void refusesATriangleWithoutItsVertices() {
    QVERIFY_THROWS_EXCEPTION(std::invalid_argument, Mesh({{0, 0, 0}}, {{0, 0, 1}}));
  }
};

VELA_TEST_MAIN(MeshTest)
#include "mesh_test.moc"
