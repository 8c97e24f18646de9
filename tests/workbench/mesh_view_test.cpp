// SPDX-License-Identifier: MIT
#include "test_meshes.h"
#include "workbench_fixture.h"

#include <support/test_case.h>

#include <QSignalSpy>

using namespace Workbench;
using Vela::Test::settle;

class MeshViewTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void withoutAMeshItShowsAHint() {
    MeshView view;
    show(view);
    QVERIFY(view.isSettled());
    QVERIFY(Test::meshPixels(view.grab().toImage()) > 100);
    QVERIFY(view.statusText().isEmpty());
    QVERIFY(!view.pick(view.rect().center()));
    QVERIFY(!view.accessibleName().isEmpty());
  }

  void showsAMesh() {
    MeshView view;
    show(view);
    QSignalSpy changed(&view, &MeshView::statusTextChanged);
    QSignalSpy settled(&view, &MeshView::settled);
    view.document().open(Test::blob(40), {});
    QVERIFY(!view.isSettled());
    QTRY_COMPARE(settled.count(), 1);
    QCOMPARE(changed.count(), 1);
    QVERIFY(view.statusText().contains(QLocale().toString(3200)));
    QCOMPARE(view.accessibleDescription(), view.statusText());
    const QImage picture = view.grab().toImage();
    const int drawn = Test::meshPixels(picture);
    QVERIFY(drawn > picture.width() * picture.height() / 5);
    QVERIFY(drawn < picture.width() * picture.height() / 5 * 4);
  }

  void drawsAndPicksInDevicePixels() {
    MeshView view;
    show(view);
    view.document().open(Test::cube(1), {});
    QCOMPARE(view.picture().size(), view.size() * view.devicePixelRatioF());
    // Where a corner of the cube is seen, it is picked.
    const QPointF at = view.camera().project({0.49F, 0.49F, 0.49F}, view.size()).value();
    const auto hit = view.pick(at.toPoint());
    QVERIFY(hit);
    QVERIFY((hit->point - QVector3D(0.5F, 0.5F, 0.5F)).length() < 0.05F);
    QVERIFY(!view.pick({0, 0}));
  }

  void looksChangeThePicture_data() {
    QTest::addColumn<std::function<void(MeshView&)>>("change");
    using Change = std::function<void(MeshView&)>;
    QTest::newRow("shading") << Change([](MeshView& view) { view.setShading(FlatShading); });
    QTest::newRow("camera") << Change([](MeshView& view) {
      Camera camera = view.camera();
      camera.orbit(20, 0);
      view.setCamera(camera);
    });
    QTest::newRow("palette") << Change([](MeshView& view) { view.setPalette(QPalette(QColor(40, 40, 40))); });
    QTest::newRow("another mesh") << Change([](MeshView& view) { view.document().open(Test::cube(1), {}); });
    QTest::newRow("selection") << Change([](MeshView& view) {
      view.document().setSelection(TriangleSelection::all(view.mesh().triangles().size()));
    });
    QTest::newRow("measured distance") << Change([](MeshView& view) {
      view.measurements().begin({0, 0, 0});
      view.measurements().finish({0.5F, 0, 0});
    });
    QTest::newRow("rubber band") << Change([](MeshView& view) { view.setRubberBand({10, 10, 80, 60}); });
    QTest::newRow("drop highlight") << Change([](MeshView& view) { view.setDropHighlight(true); });
  }
  void looksChangeThePicture() {
    QFETCH(std::function<void(MeshView&)>, change);
    MeshView view;
    view.document().open(Test::blob(20), {});
    show(view);
    const QImage before = view.grab().toImage();
    change(view);
    QTRY_VERIFY(view.isSettled());
    QVERIFY(view.grab().toImage() != before);
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
