// SPDX-License-Identifier: MIT
#include "test_meshes.h"

#include <support/rows.h>
#include <support/test_case.h>
#include <workbench/mesh_ops/decimate.h>
#include <workbench/mesh_ops/mesh_statistics.h>
#include <workbench/mesh_ops/selection.h>
#include <workbench/mesh_ops/smooth.h>

#include <cmath>
#include <numeric>
#include <random>

using namespace Workbench;
using Vela::Test::Rows;
using Vela::UiBase::RunCancelled;
using Vela::UiBase::RunProgress;

namespace {

Mesh moved(const Mesh& mesh, const std::function<QVector3D(const QVector3D&)>& place) {
  std::vector<QVector3D> positions;
  for (const QVector3D& p : mesh.positions())
    positions.push_back(place(p));
  return {positions, mesh.triangles()};
}

// The mean square distance of the vertices from the unit sphere, rooted.
double roughness(const Mesh& mesh) {
  double sum = 0;
  for (const QVector3D& p : mesh.positions())
    sum += std::pow(double(p.length()) - 1, 2);
  return std::sqrt(sum / double(mesh.positions().size()));
}

double fromSphere(const QVector3D& p) { return std::abs(double(p.length()) - 1); }
double fromTorus(const QVector3D& p) {
  return std::abs(std::hypot(std::hypot(double(p.x()), double(p.z())) - 1, double(p.y())) - 0.4);
}

using Operation = std::function<Mesh(const Mesh&, const RunProgress&)>;
using Distance = double (*)(const QVector3D&);

} // namespace

class MeshOpsTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void statisticsOfKnownShapes() {
    const MeshStatistics cube = meshStatistics(Test::cube(2));
    QCOMPARE(cube.edges, std::size_t(18));
    const EdgeLengths& lengths = cube.edgeLengths;
    QCOMPARE(lengths.shortest, 2.0);
    QVERIFY(qAbs(lengths.longest - std::sqrt(8.0)) < 1e-6);
    QVERIFY(qAbs(lengths.mean - (12 * 2 + 6 * std::sqrt(8.0)) / 18) < 1e-6);
    QCOMPARE(std::accumulate(lengths.counts.begin(), lengths.counts.end(), std::size_t()), cube.edges);
    QCOMPARE(lengths.counts.back(), std::size_t(6));
    const MeshStatistics open = meshStatistics(Test::square(1, 3));
    QCOMPARE(open.vertices + open.triangles, open.edges + 1);
    QCOMPARE(meshStatistics({}).edges, std::size_t(0));
    std::stop_source stop;
    stop.request_stop();
    QVERIFY_EXCEPTION_THROWN(meshStatistics(Test::cube(2), RunProgress(stop.get_token())), RunCancelled);
  }

  void smoothingTakesNoiseAwayAndKeepsTheVolume() {
    std::mt19937 random(7);
    std::uniform_real_distribution<float> noise(0.99F, 1.01F);
    const Mesh sphere = Test::sphere(60);
    const Mesh rough = moved(sphere, [&](const QVector3D& p) { return p * noise(random); });
    SmoothOptions options;
    const Mesh smooth = smoothed(rough, options);
    QVERIFY2(roughness(smooth) < roughness(rough) / 2, qPrintable(QString::number(roughness(smooth))));
    options.iterations = 30;
    QVERIFY(std::abs(*smoothed(rough, options).volume() / *sphere.volume() - 1) < 0.01);
    QCOMPARE(smooth.triangles(), rough.triangles());
  }

  void smoothingLeavesBordersAndTheUnselectedAlone() {
    const Mesh plate = moved(Test::square(1, 10), [](const QVector3D& p) {
      return QVector3D(p.x(), p.y(), std::sin(100 * p.x() + 37 * p.y()) * 0.1F);
    });
    const auto isMoved = [&](const Mesh& result, std::size_t vertex) {
      return result.positions()[vertex] != plate.positions()[vertex];
    };
    const Mesh all = smoothed(plate);
    for (std::size_t v = 0; v < all.positions().size(); ++v) {
      const bool border = v % 11 == 0 || v % 11 == 10 || v < 11 || v >= 110;
      QCOMPARE(isMoved(all, v), !border);
    }
    SmoothOptions options;
    options.selection = TriangleSelection(plate.triangles().size());
    for (std::size_t i = 0; i < 100; ++i)
      options.selection.set(i);
    const Mesh half = smoothed(plate, options);
    for (std::size_t v = 0; v < half.positions().size(); ++v)
      QCOMPARE(isMoved(half, v), isMoved(all, v) && v < 55);
    options.selection = TriangleSelection::all(3);
    QVERIFY_THROWS_EXCEPTION(std::invalid_argument, smoothed(plate, options));
  }

  void decimationKeepsAClosedSurface_data() {
    const Rows<Mesh, Distance, int> row("mesh", "distance", "target");
    row("sphere to a tenth", Test::sphere(70), fromSphere, 966);
    row("torus to a tenth", Test::torus(70), fromTorus, 980);
  }
  void decimationKeepsAClosedSurface() {
    QFETCH(Mesh, mesh);
    QFETCH(Distance, distance);
    QFETCH(int, target);
    const Mesh result = decimated(mesh, std::size_t(target));
    QCOMPARE(int(result.triangles().size()), target);
    QVERIFY(result.isClosed());
    // Every edge belongs to two triangles; the number of handles follows from the three numbers.
    const auto characteristic = [](const Mesh& m) {
      return int(m.positions().size()) - int(m.triangles().size()) / 2;
    };
    QCOMPARE(characteristic(result), characteristic(mesh));
    QVERIFY(std::abs(*result.volume() / *mesh.volume() - 1) < 0.01);
    for (const Mesh::Triangle& t : result.triangles()) {
      const auto& p = result.positions();
      QVERIFY(distance(p[t[0]]) < 0.01);
      QVERIFY(distance((p[t[0]] + p[t[1]] + p[t[2]]) / 3) < 0.02);
    }
    for (std::size_t i = 0; i < result.triangles().size(); ++i)
      QVERIFY(result.faceArea(i) > 0);
  }

  void decimationCopesWithAnyMesh_data() {
    const Rows<Mesh, int> row("mesh", "least");
    row("a cube, down to what is still closed", Test::cube(1), 4);
    row("three faces at an edge",
        {{{0, 0, 0}, {0, 0, 1}, {1, 0, 0}, {-1, 1, 0}, {-1, -1, 0}},
         {{0, 1, 2}, {0, 1, 3}, {0, 1, 4}, {1, 1, 2}}},
        3);
    row("two surfaces", Test::merged(Test::sphere(6), Test::square(1)), 5);
    row("a place that is not a number", {{{std::nanf(""), 0, 0}, {1, 0, 0}, {0, 1, 0}}, {{0, 1, 2}}}, 1);
  }
  void decimationCopesWithAnyMesh() {
    QFETCH(Mesh, mesh);
    QFETCH(int, least);
    const Mesh result = decimated(mesh, 0);
    QCOMPARE(int(result.triangles().size()), least);
    QCOMPARE(result.isClosed(), mesh.isClosed());
  }

  void anOperationTellsItsProgressAndStops_data() {
    const Rows<Operation> row("operation");
    row("smooth", [](const Mesh& mesh, const RunProgress& progress) {
      SmoothOptions options;
      options.iterations = 500;
      return smoothed(mesh, options, progress);
    });
    row("decimate",
        [](const Mesh& mesh, const RunProgress& progress) { return decimated(mesh, 20, progress); });
  }
  void anOperationTellsItsProgressAndStops() {
    QFETCH(Operation, operation);
    const Mesh mesh = Test::sphere(40);
    std::vector<double> told;
    operation(mesh, RunProgress({}, [&told](double fraction) { told.push_back(fraction); }));
    QVERIFY(std::is_sorted(told.begin(), told.end()) && told.size() > 10 && told.size() <= 101);
    QCOMPARE(told.front(), 0.0);
    QCOMPARE(told.back(), 1.0);

    std::stop_source stop;
    told.clear();
    const RunProgress progress(stop.get_token(), [&](double fraction) {
      told.push_back(fraction);
      if (fraction > 0.3)
        stop.request_stop();
    });
    QVERIFY_THROWS_EXCEPTION(RunCancelled, operation(mesh, progress));
    QVERIFY(told.back() < 0.7);
  }

  void selectionsFollowTheSurface() {
    const Mesh mesh = Test::merged(Test::cube(1), Test::square(1, 5, 2));
    const TriangleSelection cube = selectConnected(mesh, 3);
    QCOMPARE(cube.count(), std::size_t(12));
    TriangleSelection plate = cube;
    plate.invert();
    QCOMPARE(selectConnected(mesh, 12 + 49), plate);
    QVERIFY(std::abs(areaOf(mesh, cube) - 6) < 1e-6);
    QCOMPARE(shrunk(mesh, plate), plate);

    // The cell in the middle of the plate; of the eight around it all but two triangles at its corners touch
    // it.
    const std::uint32_t cell[] = {12 + 24, 12 + 25};
    const TriangleSelection middle(mesh.triangles().size(), cell);
    const TriangleSelection more = grown(mesh, middle);
    QCOMPARE(more.count(), std::size_t(16));
    QCOMPARE(shrunk(mesh, more), middle);

    const Mesh rest = withoutTriangles(mesh, plate);
    QCOMPARE(rest.positions(), Test::cube(1).positions());
    QCOMPARE(rest.triangles(), Test::cube(1).triangles());
    QVERIFY_THROWS_EXCEPTION(std::invalid_argument, grown(rest, middle));
  }
};

VELA_TEST_MAIN(MeshOpsTest)
#include "mesh_ops_test.moc"
