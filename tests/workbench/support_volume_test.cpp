// SPDX-License-Identifier: MIT
#include "test_meshes.h"

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

Mesh table() {
  return boxes({{{0, 4, 0}, {10, 5, 6}},
                {{0, 0, 0}, {1, 4, 1}},
                {{9, 0, 0}, {10, 4, 1}},
                {{0, 0, 5}, {1, 4, 6}},
                {{9, 0, 5}, {10, 4, 6}}});
}

} // namespace

class SupportVolumeTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void fillsTheRoomBelowWhatLeansOver_data() {
    QTest::addColumn<Mesh>("mesh");
    QTest::addColumn<double>("limitAngle");
    QTest::addColumn<double>("expected");
    const QList<std::pair<QVector3D, QVector3D>> bridge{
        {{0, 0, 0}, {2, 5, 2}}, {{8, 0, 0}, {10, 5, 2}}, {{0, 5, 0}, {10, 6, 2}}};
    auto bridgeOverBlock = bridge;
    bridgeOverBlock.append({{4, 0, 0}, {6, 3, 2}});
    auto bridgeInBlock = bridge;
    bridgeInBlock.append({{4, 0, 0}, {6, 5.5F, 2}});
    QTest::newRow("nothing") << Mesh() << 45.0 << std::numeric_limits<double>::quiet_NaN();
    QTest::newRow("open surface") << Test::square(1) << 45.0 << std::numeric_limits<double>::quiet_NaN();
    QTest::newRow("table, inside out") << turnedInsideOut(table()) << 45.0 << (60.0 - 4) * 4;
    QTest::newRow("down to what stands below") << boxes(bridgeOverBlock) << 45.0 << 6.0 * 2 * 5 - 2 * 2 * 3;
    QTest::newRow("parts run through one another") << boxes(bridgeInBlock) << 45.0 << 6.0 * 2 * 5 - 2 * 2 * 5;
    QTest::newRow("leans as far as the limit") << leaningBar(45) << 45.0 << 0.0;
    QTest::newRow("a lower limit") << leaningBar(44) << 40.0 << 5 * std::tan(44 * std::numbers::pi / 180);
    // What the lower half leaves of a cylinder around it.
    QTest::newRow("sphere, every face") << Test::sphere(200) << 0.0 << std::numbers::pi / 3;
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
