// SPDX-License-Identifier: MIT
#include "test_meshes.h"

#include <support/rows.h>
#include <support/test_case.h>
#include <workbench/mesh_ops/support_volume.h>

#include <numbers>

using namespace Workbench;

namespace {

Mesh box(const QVector3D& from, const QVector3D& to) {
  std::vector<QVector3D> corners = Test::cube(1).positions();
  for (QVector3D& corner : corners)
    corner = from + (corner + QVector3D(0.5F, 0.5F, 0.5F)) * (to - from);
  return {corners, Test::cube(1).triangles()};
}

Mesh boxes(const QList<std::pair<QVector3D, QVector3D>>& list) {
  Mesh all;
  for (const auto& [from, to] : list)
    all = Test::merged(all, box(from, to));
  return all;
}

Mesh turnedInsideOut(const Mesh& mesh) {
  std::vector<Mesh::Triangle> triangles = mesh.triangles();
  for (Mesh::Triangle& triangle : triangles)
    std::swap(triangle[0], triangle[1]);
  return {mesh.positions(), triangles};
}

// A bar 10 long whose end, a square of 1 x 1, is sheared up so that its underside leans over by an angle.
Mesh leaningBar(double degreesFromUpright) {
  const auto shift = float(std::tan(degreesFromUpright * std::numbers::pi / 180));
  std::vector<QVector3D> corners = box({0, 0, 0}, {1, 1, 10}).positions();
  for (QVector3D& corner : corners)
    corner.setX(corner.x() + shift * corner.y());
  return {corners, Test::cube(1).triangles()};
}

} // namespace

class SupportVolumeTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void fillsTheRoomBelowWhatLeansOver_data() {
    const Vela::Test::Rows<Mesh, double, double> row("mesh", "limitAngle", "expected");
    constexpr double None = std::numeric_limits<double>::quiet_NaN();
    const auto bridgeOver = [](float height) {
      return boxes({{{0, 0, 0}, {2, 5, 2}},
                    {{8, 0, 0}, {10, 5, 2}},
                    {{0, 5, 0}, {10, 6, 2}},
                    {{4, 0, 0}, {6, height, 2}}});
    };
    row("nothing", {}, 45, None);
    row("open surface", Test::square(1), 45, None);
    row("inside out, down to what stands below", turnedInsideOut(bridgeOver(3)), 45, 6 * 2 * 5 - 2 * 2 * 3);
    row("parts run through one another", bridgeOver(5.5F), 45, 6 * 2 * 5 - 2 * 2 * 5);
    row("leans as far as the limit", leaningBar(45), 45, 0);
    row("a lower limit", leaningBar(44), 40, 5 * std::tan(44 * std::numbers::pi / 180));
    // What the lower half leaves of a cylinder around it.
    row("sphere, every face", Test::sphere(200), 0, std::numbers::pi / 3);
  }
  void fillsTheRoomBelowWhatLeansOver() {
    QFETCH(Mesh, mesh);
    QFETCH(double, limitAngle);
    QFETCH(double, expected);
    const std::optional<double> volume = supportVolume(mesh, {limitAngle});
    QCOMPARE(volume.has_value(), !std::isnan(expected));
    if (volume)
      QVERIFY2(std::abs(*volume - expected) <= expected * 0.01, qPrintable(QString::number(*volume)));
  }

  void stopsWhenAsked() {
    std::stop_source stop;
    stop.request_stop();
    QVERIFY_EXCEPTION_THROWN(supportVolume(Test::cube(1), {}, Vela::UiBase::RunProgress(stop.get_token())),
                             Vela::UiBase::RunCancelled);
  }
};

VELA_TEST_MAIN(SupportVolumeTest)
#include "support_volume_test.moc"
