// SPDX-License-Identifier: MIT
#include "test_meshes.h"

#include <support/rows.h>
#include <support/test_case.h>
#include <workbench/camera.h>

using namespace Workbench;

namespace {

const QSizeF Viewport(800, 600);

bool near(const QPointF& a, const QPointF& b, double tolerance = 0.02) {
  return (a - b).manhattanLength() < tolerance;
}

Camera lookingAt(const Bounds& bounds, double yaw = 0, double pitch = 0) {
  Camera camera;
  camera.orbit(yaw - camera.yaw(), pitch - camera.pitch());
  camera.fit(bounds, Viewport);
  return camera;
}

} // namespace

class CameraTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void fitShowsAllOfABoxAndLittleElse_data() {
    const Vela::Test::Rows<double, double> row("yaw", "pitch");
    row("oblique", 30, 20);
    row("behind, from below", 170, -60);
    row("from above", -95, 90);
  }
  void fitShowsAllOfABoxAndLittleElse() {
    QFETCH(double, yaw);
    QFETCH(double, pitch);
    const Bounds box{{100, -7, 3}, {110, 20, 6}};
    for (const QSizeF& viewport : {QSizeF(800, 600), QSizeF(200, 900), QSizeF(900, 100)}) {
      Camera camera = lookingAt(box, yaw, pitch);
      camera.fit(box, viewport);
      double reach = 0; // 1 at the rim of the picture
      for (int i = 0; i < 8; ++i) {
        const QVector3D corner((i & 1) != 0 ? box.min.x() : box.max.x(),
                               (i & 2) != 0 ? box.min.y() : box.max.y(),
                               (i & 4) != 0 ? box.min.z() : box.max.z());
        const QPointF at = camera.project(corner, viewport).value();
        reach = std::max({reach, std::abs(at.x() / viewport.width() * 2 - 1),
                          std::abs(at.y() / viewport.height() * 2 - 1)});
      }
      QVERIFY2(reach < 1 && reach > 0.8, qPrintable(QString::number(reach)));
    }
  }

  void zoomKeepsTheAnchorInPlaceAlsoAtTheLimits() {
    for (const double factor : {1.7, 0.3, 1e9, 1e-9}) {
      Camera camera = lookingAt({{-1, -1, -1}, {1, 1, 1}}, 20, 40);
      const double before = camera.distance();
      const QVector3D anchor = camera.pointInTargetPlane({100, 500}, Viewport);
      camera.zoomAt(factor, anchor);
      QVERIFY(near(camera.project(anchor, Viewport).value(), {100, 500}, 0.5));
      QCOMPARE(camera.distance() < before, factor > 1);
    }
  }

  void fitsWhatHasNoSize() {
    Camera camera;
    camera.fit(Bounds{{5, 5, 5}, {5, 5, 5}}, Viewport);
    QVERIFY(near(camera.project({5, 5, 5}, Viewport).value(), {400, 300}));
    camera.fit(Bounds(), QSizeF());
    camera.fit(Mesh(), Viewport);
    QVERIFY(camera.distance() > 0);
  }
};

VELA_TEST_MAIN(CameraTest)
#include "camera_test.moc"
