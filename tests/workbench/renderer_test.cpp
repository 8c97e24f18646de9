// SPDX-License-Identifier: MIT
#include "test_meshes.h"

#include <support/rows.h>
#include <support/test_case.h>
#include <workbench/renderer.h>

#include <oneapi/tbb/global_control.h>
#include <oneapi/tbb/task_arena.h>

using namespace Workbench;

namespace {

RenderStyle lightStyle() { return RenderStyle::forPalette(QPalette(QColor(0xef, 0xef, 0xef))); }

// Looks along -z at the plane z = 0, one unit there covering @p scale pixels.
Camera frontCamera(const QSize& size, double scale) {
  Camera camera;
  camera.orbit(-camera.yaw(), -camera.pitch());
  camera.fit(Bounds{{-1, -1, -1}, {1, 1, 1}}, size);
  camera.zoomAt(camera.distance() * scale / Camera::focalLength(size), camera.target());
  return camera;
}

/// A mesh looked at from the front.
class Picture : public Frame {
public:
  Picture(const Mesh& mesh, const QSize& size, double scale, int samples = 1)
      : request{mesh, frontCamera(size, scale), size, lightStyle(), samples, {}} {
    Renderer().draw(*this, request);
  }
  const FrameRequest request;
  int drawnPixels() const {
    int count = 0;
    for (int y = 0; y < image().height(); ++y) {
      for (int x = 0; x < image().width(); ++x)
        count += pick({x, y}) ? 1 : 0;
    }
    return count;
  }
};

} // namespace

class RendererTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void aSquareCoversExactlyItsPixels_data() {
    const Vela::Test::Rows<int, int> row("cells", "oversampling");
    row("common edges on pixel centres", 40, 1);
    row("triangles smaller than a pixel", 150, 1);
    row("oversampled", 7, 2);
  }
  void aSquareCoversExactlyItsPixels() {
    QFETCH(int, cells);
    QFETCH(int, oversampling);
    const QSize size(200, 160);
    const Picture picture(Test::square(1, cells), size, 40.2, oversampling);
    const QRect part(100, 50, 90, 70);
    QCOMPARE(Renderer::find(picture.request, part).trianglesIn(part), picture.trianglesIn(part));
    for (int y = 0; y < size.height(); ++y) {
      for (int x = 0; x < size.width(); ++x) {
        const bool inside = QRect(60, 40, 80, 80).contains(x, y);
        QVERIFY2(picture.pick({x, y}).has_value() == inside, qPrintable(QString("%1 %2").arg(x).arg(y)));
      }
    }
  }

  // The camera stands in a long tunnel of which the rear end lies behind it.
  void clipsWhatReachesBehindTheEye() {
    const Mesh rod =
        Test::moved(Test::cube(2), [](const QVector3D& p) { return QVector3D(p.x(), p.y(), 100 * p.z()); });
    std::vector<Mesh::Triangle> sides = rod.triangles();
    sides.erase(sides.begin(), sides.begin() + 4); // the ends
    const QSize size(320, 240);
    const float eye = frontCamera(size, 300).eye().z();
    QVERIFY(eye < 100);
    const Picture picture(Mesh(rod.positions(), sides), size, 300);
    for (const QPoint& pixel :
         {QPoint(0, 0), QPoint(0, 120), QPoint(319, 239), QPoint(160, 5), QPoint(9, 230)}) {
      const auto hit = picture.pick(pixel);
      QVERIFY(hit);
      const float reach = std::max(std::abs(hit->point.x()), std::abs(hit->point.y()));
      QVERIFY2(std::abs(reach - 1) < 1e-3F, qPrintable(QString::number(reach)));
      QVERIFY(hit->point.z() < eye);
    }
    QVERIFY(picture.drawnPixels() > size.width() * size.height() * 9 / 10);
  }

  void leavesOutWhatIsBehindOrBroken() {
    const QSize size(100, 100);
    const float eye = frontCamera(size, 20).eye().z();
    const Mesh broken(
        {{std::nanf(""), 0, 0}, {1, 0, 0}, {0, 1, 0}, {0, 0, 0}, {1e38F, 1e38F, 0}, {-1e38F, 1e38F, 1e38F}},
        {{0, 1, 2}, {1, 1, 1}, {1, 3, 1}, {0, 0, 0}});
    for (const Mesh& mesh : {Test::square(1, 2, eye + 1), broken, Mesh()})
      QCOMPARE(Picture(mesh, size, 20).drawnPixels(), 0);
    const Picture none(Test::cube(1), {}, 20);
    QVERIFY(none.image().isNull() && !none.pick({0, 0}));
  }

  void theImageDoesNotDependOnTheThreads() {
    const Mesh mesh = Test::merged(Test::blob(90), Test::square(0.9F, 30));
    const QSize size(333, 257);
    Camera camera = frontCamera(size, 80);
    camera.orbit(25, 35);
    RenderStyle style = lightStyle();
    style.shading = FlatShadingWithEdges;
    using Control = oneapi::tbb::global_control;
    const Control moreThanProcessors(Control::max_allowed_parallelism, 8);
    const auto drawnBy = [&](int threads) {
      QImage image;
      oneapi::tbb::task_arena(threads).execute([&] { image = imageOf({mesh, camera, size, style, 1, {}}); });
      return image;
    };
    const QImage first = drawnBy(1);
    for (const int threads : {2, 5, 8})
      QVERIFY(drawnBy(threads) == first);
  }
};

VELA_TEST_MAIN(RendererTest)
#include "renderer_test.moc"
