// SPDX-License-Identifier: MIT
#include "test_meshes.h"

#include <support/rows.h>
#include <support/test_case.h>
#include <workbench/mesh_ops/decimate.h>
#include <workbench/mesh_ops/selection.h>
#include <workbench/mesh_ops/smooth.h>
#include <workbench/mesh_ops/support_volume.h>

#include <cmath>
#include <numbers>
#include <random>

using namespace Workbench;
using Vela::Test::Rows;

namespace {

Mesh box(const QVector3D& from, const QVector3D& to) {
  return Test::moved(Test::cube(1), [&](const QVector3D& p) {
    return from + (p + QVector3D(0.5F, 0.5F, 0.5F)) * (to - from);
  });
}

} // namespace

class MeshOpsTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void smoothingTakesNoiseAwayAndKeepsTheVolume() {
    std::mt19937 random(7);
    std::uniform_real_distribution<float> noise(0.99F, 1.01F);
    const Mesh even = Test::torus(60);
    const Mesh rough = Test::moved(even, [&](const QVector3D& p) { return p * noise(random); });
    SmoothOptions options;
    options.iterations = 30;
    const Mesh smooth = smoothed(rough, options);
    QVERIFY(smooth.area() - even.area() < (rough.area() - even.area()) / 2);
    QVERIFY(std::abs(*smooth.volume() / *even.volume() - 1) < 0.01);
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

  void decimationKeepsTheSurface_data() {
    const Rows<Mesh, int, int> row("mesh", "target", "left");
    row("closed, and so it stays", Test::torus(70), 980, 980);
    row("a cube, down to what is still closed", Test::cube(1), 0, 4);
    row("three faces at an edge",
        {{{0, 0, 0}, {0, 0, 1}, {1, 0, 0}, {-1, 1, 0}, {-1, -1, 0}},
         {{0, 1, 2}, {0, 1, 3}, {0, 1, 4}, {1, 1, 2}}},
        0, 3);
    row("a place that is not a number", {{{std::nanf(""), 0, 0}, {1, 0, 0}, {0, 1, 0}}, {{0, 1, 2}}}, 0, 1);
  }
  void decimationKeepsTheSurface() {
    QFETCH(Mesh, mesh);
    QFETCH(int, target);
    std::vector<double> told;
    const Vela::UiBase::RunProgress progress({}, [&](double fraction) { told.push_back(fraction); });
    const Mesh result = decimated(mesh, std::size_t(target), progress);
    QTEST(int(result.triangles().size()), "left");
    QCOMPARE(result.isClosed(), mesh.isClosed());
    QVERIFY(std::is_sorted(told.begin(), told.end()) && told.size() <= 101);
    for (std::size_t i = 0; target > 0 && i < result.triangles().size(); ++i) {
      QVERIFY(result.faceArea(i) > 0);
      for (const std::uint32_t corner : result.triangles()[i]) {
        const QVector3D p = result.positions()[corner];
        QVERIFY(std::abs(std::hypot(std::hypot(p.x(), p.z()) - 2, p.y()) - 1) < 0.02F); // on the torus
      }
    }
  }

  void anOperationStopsOnTheWay() {
    std::stop_source stop;
    double told = 1;
    const Vela::UiBase::RunProgress progress(stop.get_token(), [&](double fraction) {
      told = fraction;
      stop.request_stop();
    });
    QVERIFY_THROWS_EXCEPTION(Vela::UiBase::RunCancelled, smoothed(Test::torus(40), {}, progress));
    QVERIFY(told < 0.5);
  }

  void supportsFillTheRoomBelowWhatLeansOver_data() {
    const Rows<Mesh, double, double> row("mesh", "limitAngle", "expected"); // -1 for none
    const Mesh posts = Test::merged(box({0, 0, 0}, {2, 5, 2}), box({8, 0, 0}, {10, 5, 2}));
    const Mesh bridge = Test::merged(posts, box({0, 5, 0}, {10, 6, 2}));
    std::vector<Mesh::Triangle> flipped = Test::cube(1).triangles();
    std::swap(flipped[3][0], flipped[3][1]);
    row("open surface", Test::square(1), 45, -1);
    row("a face inside out", {Test::cube(1).positions(), flipped}, 45, -1);
    row("down to what stands below", Test::merged(bridge, box({4, 0, 0}, {6, 3, 2})), 45, 60 - 12);
    row("parts run through one another", Test::merged(bridge, box({4, 0, 0}, {6, 5.5F, 2})), 45, 60 - 20);
    // What the lower half leaves of a ring around it, as high and twice as wide.
    row("every face", Test::torus(200), 0, 4 * std::numbers::pi * (2 - std::numbers::pi / 2));
  }
  void supportsFillTheRoomBelowWhatLeansOver() {
    QFETCH(Mesh, mesh);
    QFETCH(double, limitAngle);
    QFETCH(double, expected);
    const double volume = supportVolume(mesh, {limitAngle}).value_or(-1);
    QVERIFY2(std::abs(volume - expected) <= std::abs(expected) * 0.01, qPrintable(QString::number(volume)));
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
