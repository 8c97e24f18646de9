// SPDX-License-Identifier: MIT
#include "test_meshes.h"

#include <support/rows.h>
#include <support/test_case.h>
#include <workbench/mesh_ops/decimate.h>
#include <workbench/mesh_ops/selection.h>
#include <workbench/mesh_ops/smooth.h>

#include <cmath>
#include <random>

using namespace Workbench;
using Vela::Test::Rows;
using Vela::UiBase::RunCancelled;
using Vela::UiBase::RunProgress;

class MeshOpsTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void smoothingTakesNoiseAwayAndKeepsTheVolume() {
    std::mt19937 random(7);
    std::uniform_real_distribution<float> noise(0.99F, 1.01F);
    const Mesh sphere = Test::sphere(60);
    const Mesh rough = Test::moved(sphere, [&](const QVector3D& p) { return p * noise(random); });
    SmoothOptions options;
    options.iterations = 30;
    const Mesh smooth = smoothed(rough, options);
    QVERIFY(smooth.area() - sphere.area() < (rough.area() - sphere.area()) / 2);
    QVERIFY(std::abs(*smooth.volume() / *sphere.volume() - 1) < 0.01);
  }

  void smoothingLeavesBordersAndTheUnselectedAlone() {
    const Mesh plate = Test::moved(Test::square(1, 10), [](const QVector3D& p) {
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

  void decimationKeepsAClosedSurface() {
    const Mesh mesh = Test::sphere(70);
    const Mesh result = decimated(mesh, 966);
    QCOMPARE(result.triangles().size(), std::size_t(966));
    QVERIFY(result.isClosed());
    QVERIFY(std::abs(*result.volume() / *mesh.volume() - 1) < 0.01);
    for (std::size_t i = 0; i < result.triangles().size(); ++i) {
      QVERIFY(result.faceArea(i) > 0);
      for (const std::uint32_t corner : result.triangles()[i])
        QVERIFY(std::abs(result.positions()[corner].length() - 1) < 0.01F);
    }
  }

  void decimationCopesWithAnyMesh_data() {
    const Rows<Mesh, int> row("mesh", "least");
    row("a cube, down to what is still closed", Test::cube(1), 4);
    row("three faces at an edge",
        {{{0, 0, 0}, {0, 0, 1}, {1, 0, 0}, {-1, 1, 0}, {-1, -1, 0}},
         {{0, 1, 2}, {0, 1, 3}, {0, 1, 4}, {1, 1, 2}}},
        3);
    row("a place that is not a number", {{{std::nanf(""), 0, 0}, {1, 0, 0}, {0, 1, 0}}, {{0, 1, 2}}}, 1);
  }
  void decimationCopesWithAnyMesh() {
    QFETCH(Mesh, mesh);
    QFETCH(int, least);
    const Mesh result = decimated(mesh, 0);
    QCOMPARE(int(result.triangles().size()), least);
    QCOMPARE(result.isClosed(), mesh.isClosed());
  }

  void anOperationTellsItsProgressAndStops() {
    const Mesh mesh = Test::sphere(40);
    std::vector<double> told;
    decimated(mesh, 20, RunProgress({}, [&told](double fraction) { told.push_back(fraction); }));
    QVERIFY(std::is_sorted(told.begin(), told.end()) && told.size() > 10 && told.size() <= 101);
    QCOMPARE(told.back(), 1.0);
    std::stop_source stop;
    const RunProgress progress(stop.get_token(), [&](double fraction) {
      told.push_back(fraction);
      stop.request_stop();
    });
    QVERIFY_THROWS_EXCEPTION(RunCancelled, smoothed(mesh, {}, progress));
    QVERIFY(told.back() < 0.5);
  }

  void selectionsFollowTheSurface() {
    const Mesh mesh = Test::merged(Test::cube(1), Test::square(1, 5, 2));
    const TriangleSelection cube = selectConnected(mesh, 3);
    QCOMPARE(cube.count(), std::size_t(12));
    TriangleSelection plate = cube;
    plate.invert();
    QCOMPARE(selectConnected(mesh, 12 + 49), plate);
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
