// SPDX-License-Identifier: MIT
#include "test_meshes.h"

#include <support/test_case.h>

using namespace Workbench;

class MeshTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void measuresACube() {
    const Mesh cube = Test::cube(2);
    QCOMPARE(cube.area(), 24.0);
    QVERIFY(cube.isClosed());
    QCOMPARE(cube.volume().value(), 8.0);
    QCOMPARE(cube.bounds().min, QVector3D(-1, -1, -1));
    QCOMPARE(cube.bounds().max, QVector3D(1, 1, 1));
  }

  void measuresFarFromTheOriginAsWell() {
    const Mesh atOrigin = Test::cube(2);
    std::vector<QVector3D> moved;
    for (const QVector3D& p : atOrigin.positions())
      moved.push_back(p + QVector3D(100000, -200000, 300000));
    const Mesh cube(moved, atOrigin.triangles());
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

  void normalsPointOutwards() {
    const Mesh cube = Test::cube(1);
    for (std::size_t i = 0; i < cube.triangles().size(); ++i) {
      const QVector3D normal = cube.faceNormal(i);
      QCOMPARE(normal.length(), 1.0F);
      QVERIFY(QVector3D::dotProduct(normal, cube.positions()[cube.triangles()[i][0]]) > 0);
    }
    const Mesh round = Test::blob(48);
    // The poles are rings of degenerate triangles, whose corners must not disturb their neighbours.
    for (std::size_t i = 48; i + 48 < round.positions().size(); ++i)
      QVERIFY(QVector3D::dotProduct(round.vertexNormals()[i], round.positions()[i].normalized()) > 0.5F);
  }

  void normalsSurviveExtremeScales_data() {
    QTest::addColumn<float>("scale");
    QTest::newRow("tiny") << 1e-15F;
    QTest::newRow("huge") << 1e15F;
  }
  void normalsSurviveExtremeScales() {
    QFETCH(float, scale);
    const Mesh square = Test::square(scale);
    QCOMPARE(square.faceNormal(0), QVector3D(0, 0, 1));
    QCOMPARE(square.vertexNormals()[0], QVector3D(0, 0, 1));
  }

  void aTriangleWithoutAreaHasNoNormal() {
    const Mesh line({{0, 0, 0}, {1, 0, 0}, {2, 0, 0}}, {{0, 1, 2}});
    QCOMPARE(line.faceNormal(0), QVector3D());
    QCOMPARE(line.vertexNormals()[1], QVector3D());
    QCOMPARE(line.area(), 0.0);
  }

  void refusesATriangleWithoutItsVertices() {
    QVERIFY_THROWS_EXCEPTION(std::invalid_argument, Mesh({{0, 0, 0}}, {{0, 0, 1}}));
  }

  void copiesShareTheirData() {
    const Mesh mesh = Test::cube(1);
    const Mesh copy = mesh; // NOLINT(performance-unnecessary-copy-initialization)
    QCOMPARE(&copy.positions(), &mesh.positions());
    QVERIFY(Mesh().isEmpty());
  }
};

VELA_TEST_MAIN(MeshTest)
#include "mesh_test.moc"
