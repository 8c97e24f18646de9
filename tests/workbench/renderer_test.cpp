// SPDX-License-Identifier: MIT
#include "test_meshes.h"

#include <support/rows.h>
#include <support/test_case.h>
#include <workbench/mesh_ops/selection.h>
#include <workbench/renderer.h>

#include <QPalette>

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
class Picture : public Renderer {
public:
  Picture(const Mesh& mesh, const QSize& size, double scale, const RenderStyle& style = lightStyle(),
          int oversampling = 1, const TriangleSelection& selected = {}) {
    render(mesh, frontCamera(size, scale), size, style, oversampling, selected);
  }
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
    row("two triangles", 1, 1);
    row("many triangles, common edges on pixel centres", 40, 1);
    row("triangles smaller than a pixel", 150, 1);
    row("oversampled", 7, 2);
  }
  void aSquareCoversExactlyItsPixels() {
    QFETCH(int, cells);
    QFETCH(int, oversampling);
    const QSize size(200, 160);
    const Picture picture(Test::square(1, cells), size, 40.2, lightStyle(), oversampling);
    for (int y = 0; y < size.height(); ++y) {
      for (int x = 0; x < size.width(); ++x) {
        const bool inside = x >= 60 && x < 140 && y >= 40 && y < 120;
        QVERIFY2(picture.pick({x, y}).has_value() == inside, qPrintable(QString("%1 %2").arg(x).arg(y)));
      }
    }
  }

  void picksTheTriangleAndThePoint() {
    const QSize size(300, 200);
    const Camera camera = frontCamera(size, 50);
    const Picture picture(Test::square(1, 10, 0.5F), size, 50);
    const QPoint pixel(171, 83);
    const Ray ray = camera.rayThrough(QPointF(pixel) + QPointF(0.5, 0.5), size);
    const QVector3D expected = ray.origin + ray.direction * (ray.origin.z() - 0.5F);
    const auto hit = picture.pick(pixel);
    QVERIFY(hit);
    QVERIFY((hit->point - expected).length() < 1e-4F);
    const int column = int((expected.x() + 1) * 5);
    const int row = int((expected.y() + 1) * 5);
    QCOMPARE(int(hit->triangle) / 2, row * 10 + column);
    for (const QPoint& outside : {QPoint(0, 0), QPoint(-1, 100), QPoint(300, 100), QPoint(150, 200)})
      QVERIFY(!picture.pick(outside));
  }

  // The camera stands in a long tunnel of which the rear end lies behind it.
  void clipsWhatReachesBehindTheEye() {
    std::vector<QVector3D> corners = Test::cube(2).positions();
    for (QVector3D& corner : corners)
      corner.setZ(corner.z() * 100);
    std::vector<Mesh::Triangle> sides = Test::cube(2).triangles();
    sides.erase(sides.begin(), sides.begin() + 4); // the ends
    const QSize size(320, 240);
    const float eye = frontCamera(size, 300).eye().z();
    QVERIFY(eye < 100);
    const Picture picture(Mesh(corners, sides), size, 300);
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

  void theImageDoesNotDependOnTheThreads_data() {
    const Vela::Test::Rows<EShading> row("shading");
    row("smooth", SmoothShading);
    row("edges", FlatShadingWithEdges);
  }
  void theImageDoesNotDependOnTheThreads() {
    QFETCH(EShading, shading);
    const Mesh mesh = Test::merged(Test::blob(90), Test::square(0.9F, 30));
    const QSize size(333, 257);
    Camera camera = frontCamera(size, 80);
    camera.orbit(25, 35);
    RenderStyle style = lightStyle();
    style.shading = shading;
    using Control = oneapi::tbb::global_control;
    const Control moreThanProcessors(Control::max_allowed_parallelism, 8);
    QImage first;
    for (const int threads : {1, 2, 5, 8}) {
      Renderer renderer;
      oneapi::tbb::task_arena arena(threads);
      arena.execute([&] { renderer.render(mesh, camera, size, style); });
      if (first.isNull())
        first = renderer.image();
      QVERIFY(renderer.image() == first);
    }
  }

  void edgesAreDrawnWhereFacesAreSeen() {
    const QSize size(200, 200);
    RenderStyle style = lightStyle();
    const auto colours = [&](const Mesh& mesh, EShading shading) {
      style.shading = shading;
      return Picture(mesh, size, 80, style).image();
    };
    // In front two triangles with their common edge from the lower left to the upper right, behind them many.
    const Mesh mesh = Test::merged(Test::square(1), Test::square(1, 20, -0.1F));
    const QImage flat = colours(mesh, FlatShading);
    const QImage edges = colours(mesh, FlatShadingWithEdges);
    for (int x = 30; x < 170; ++x) {
      QVERIFY(qGray(edges.pixel(x, 199 - x)) < qGray(flat.pixel(x, 199 - x)) - 30);
      if (std::abs(100 - x) > 3)
        QCOMPARE(edges.pixel(x, 100), flat.pixel(x, 100));
    }
    const Mesh tiny = Test::square(1, 120);
    QCOMPARE(colours(tiny, FlatShadingWithEdges), colours(tiny, FlatShading));
  }

  void selectedTrianglesHaveTheColourOfThePalette() {
    const QColor highlight(0x90, 0x50, 0x10);
    QPalette palette(QColor(0x20, 0x20, 0x20));
    palette.setColor(QPalette::Highlight, highlight);
    const std::uint32_t lowerRight[] = {0};
    for (const EShading shading : {SmoothShading, FlatShading}) {
      RenderStyle style = RenderStyle::forPalette(palette);
      style.shading = shading;
      const Picture plain(Test::square(1), {100, 100}, 40, style);
      const Picture selected(Test::square(1), {100, 100}, 40, style, 1, TriangleSelection(2, lowerRight));
      QCOMPARE(selected.image().pixel(30, 40), plain.image().pixel(30, 40));
      const QColor color = selected.image().pixelColor(70, 60);
      QVERIFY(std::abs(color.hslHueF() - highlight.hslHueF()) < 0.06F);
      QVERIFY(color.hslSaturation() > QColor(plain.image().pixel(70, 60)).hslSaturation() + 60);
    }
  }

  void aRectangleHoldsWhatIsSeenInIt() {
    const QSize size(120, 100);
    const Camera camera = frontCamera(size, 20);
    const Picture picture(Test::cube(1), size, 20);
    const QRect all(QPoint(), size);
    QCOMPARE(picture.trianglesIn(all.adjusted(-50, -50, 50, 50)), (std::vector<std::uint32_t>{2, 3}));
    QCOMPARE(picture.trianglesIn(QRect(64, 54, 1, 1)),
             std::vector<std::uint32_t>{picture.pick({64, 54})->triangle});
    QVERIFY(picture.trianglesIn(QRect(0, 0, 30, 30)).empty());
    QVERIFY(picture.trianglesIn(QRect(500, 500, 30, 30)).empty());
    QVERIFY(Renderer().trianglesIn(all).empty());
    // Hidden ones too when they are found by where their middles are.
    QCOMPARE(trianglesInside(Test::cube(1), camera, all, size).count(), std::size_t(12));
    const TriangleSelection left = trianglesInside(Test::cube(1), camera, QRectF(60, 100, -60, -100), size);
    QCOMPARE(left.triangles(), (std::vector<std::uint32_t>{0, 3, 5, 6, 8, 9}));
  }
};

VELA_TEST_MAIN(RendererTest)
#include "renderer_test.moc"
