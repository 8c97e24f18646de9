// SPDX-License-Identifier: MIT
#include "test_meshes.h"
#include "workbench_fixture.h"

using namespace Workbench;
using Vela::Test::settle;

class MeshViewTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void drawsAndPicksInDevicePixels() {
    MeshView view;
    show(view);
    view.document().open(Test::cube(1), {});
    QTRY_VERIFY(view.isSettled());
    QCOMPARE(view.accessibleDescription(), view.statusText());
    QVERIFY(view.statusText().contains("12"));
    QCOMPARE(view.picture().size(), view.size() * view.devicePixelRatioF());
    // Where a corner of the cube is seen, it is picked.
    const QPointF at = view.camera().project({0.49F, 0.49F, 0.49F}, view.size()).value();
    const auto hit = view.pick(at.toPoint());
    QVERIFY(hit);
    QVERIFY((hit->point - QVector3D(0.5F, 0.5F, 0.5F)).length() < 0.05F);
    QVERIFY(!view.pick({0, 0}));
  }

  // As long as it goes on, it is drawn quickly; then the same as if there had been no motion.
  void comesToRestAfterAMotion() {
    MeshView view;
    view.document().open(Test::blob(20), {});
    show(view);
    const QImage rested = view.grab().toImage();
    const Camera camera = view.camera();
    Camera moved = camera;
    moved.orbit(5, 5);
    view.setCamera(moved);
    view.setCamera(camera);
    view.grab();
    QVERIFY(!view.isSettled());
    QTRY_VERIFY(view.isSettled());
    QVERIFY(view.grab().toImage() == rested);
  }

  void keepsTheMeshInViewWhenResized() {
    const Mesh plank({{-4, -0.3F, 0}, {4, -0.3F, 0}, {4, 0.3F, 0}, {-4, 0.3F, 0}}, {{0, 1, 2}, {0, 2, 3}});
    MeshView view;
    view.document().open(plank, {});
    show(view);
    const double before = view.camera().distance();
    view.resize(800, 150);
    settle();
    QVERIFY(view.camera().distance() < before);
    Camera own = view.camera();
    own.orbit(10, 0);
    view.setCamera(own);
    view.resize(300, 300);
    settle();
    QCOMPARE(view.camera(), own);
    view.resetCamera();
    QCOMPARE(view.camera().yaw(), Camera().yaw());
  }

private:
  static void show(MeshView& view) {
    view.setAttribute(Qt::WA_DeleteOnClose, false);
    view.resize(320, 240);
    view.show();
    QVERIFY(QTest::qWaitForWindowExposed(&view));
    QTRY_VERIFY(view.isSettled());
  }
};

VELA_TEST_MAIN(MeshViewTest)
#include "mesh_view_test.moc"
