// SPDX-License-Identifier: MIT
#include "test_meshes.h"

#include <support/rows.h>
#include <support/test_case.h>
#include <workbench/mesh_ops/support_volume.h>

#include <numbers>

using namespace Workbench;

namespace {

Mesh box(const QVector3D& from, const QVector3D& to) {
  return Test::moved(Test::cube(1), [&](const QVector3D& p) {
    return from + (p + QVector3D(0.5F, 0.5F, 0.5F)) * (to - from);
  });
}

} // namespace

class SupportVolumeTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void fillsTheRoomBelowWhatLeansOver_data() {
    const Vela::Test::Rows<Mesh, double, double> row("mesh", "limitAngle", "expected");
    const Mesh posts = Test::merged(box({0, 0, 0}, {2, 5, 2}), box({8, 0, 0}, {10, 5, 2}));
    const Mesh bridge = Test::merged(posts, box({0, 5, 0}, {10, 6, 2}));
    constexpr double None = std::numeric_limits<double>::quiet_NaN();
    std::vector<Mesh::Triangle> flipped = Test::cube(1).triangles();
    std::swap(flipped[3][0], flipped[3][1]);
    row("open surface", Test::square(1), 45, None);
    row("a face inside out", {Test::cube(1).positions(), flipped}, 45, None);
    row("down to what stands below", Test::merged(bridge, box({4, 0, 0}, {6, 3, 2})), 45, 60 - 12);
    row("parts run through one another", Test::merged(bridge, box({4, 0, 0}, {6, 5.5F, 2})), 45, 60 - 20);
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
};

VELA_TEST_MAIN(SupportVolumeTest)
#include "support_volume_test.moc"
