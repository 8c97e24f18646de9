// SPDX-License-Identifier: MIT
#include <support/rows.h>
#include <support/test_case.h>
#include <workbench/photos/photo_viewport.h>

using namespace Workbench;

namespace {

PhotoViewport viewportOf(const QSize& photo, const QSizeF& canvas, qreal ratio = 1) {
  PhotoViewport viewport;
  viewport.setCanvas(canvas, ratio);
  viewport.setPhoto(photo);
  return viewport;
}

} // namespace

class PhotoViewportTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void showsAllOfThePhotographAtFirst_data() {
    const Vela::Test::Rows<QSize, qreal, double, double, double, QRectF> row("photo", "ratio", "zoom",
                                                                             "least", "most", "rect");
    row("wide", {4000, 1000}, 1, 0.1, 0.1, 16, {0, 100, 400, 100});
    row("twice as sharp", {4000, 1000}, 2, 0.2, 0.2, 16, {0, 100, 400, 100});
    row("tiny", {4, 3}, 1, 100, 1, 100, {0, 0, 400, 300});
    row("none", {}, 1, 1, 1, 16, {});
  }
  void showsAllOfThePhotographAtFirst() {
    QFETCH(QSize, photo);
    QFETCH(qreal, ratio);
    const PhotoViewport viewport = viewportOf(photo, {400, 300}, ratio);
    QVERIFY(viewport.isFit() && !viewport.canPan());
    QTEST(viewport.zoom(), "zoom");
    QTEST(viewport.leastZoom(), "least");
    QTEST(viewport.mostZoom(), "most");
    QTEST(viewport.photoRect(), "rect");
  }

  void zoomingStopsAtTheOriginalSizeAndAtTheLimits() {
    PhotoViewport viewport = viewportOf({4000, 3000}, {400, 300}, 2);
    bool wasOriginal = false;
    for (int step = 0; step < 30 && viewport.canZoomIn(); ++step) {
      viewport.zoomAt(PhotoViewport::ZoomStep, {310, 95});
      wasOriginal = wasOriginal || viewport.zoom() == 1;
    }
    QVERIFY(wasOriginal);
    QCOMPARE(viewport.zoom(), 16.0);
    for (int step = 0; step < 30 && viewport.canZoomOut(); ++step)
      viewport.zoomAt(1 / PhotoViewport::ZoomStep, {310, 95});
    QVERIFY(viewport.isFit());
  }

  void theEdgesStayAtTheEdgesOfTheView() {
    PhotoViewport viewport = viewportOf({1000, 200}, {400, 300});
    viewport.showOriginalSize(viewport.middle());
    QVERIFY(viewport.canPan());
    viewport.pan({5000, 5000});
    QCOMPARE(viewport.photoRect(), QRectF(0, 50, 1000, 200));
    viewport.pan({-5000, 0});
    QCOMPARE(viewport.photoRect(), QRectF(-600, 50, 1000, 200));
    viewport.setCanvas({700, 100}, 1);
    QCOMPARE(viewport.zoom(), 1.0);
    QCOMPARE(viewport.photoRect().right(), 700.0);
  }
};

VELA_TEST_MAIN(PhotoViewportTest)
#include "photo_viewport_test.moc"
