// SPDX-License-Identifier: MIT
#include "test_meshes.h"

#include <support/rows.h>
#include <support/test_case.h>
#include <workbench/renderer.h>

using namespace Workbench;

namespace {

constexpr QSize ImageSize(200, 160);
constexpr double Scale = 40.2;

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
      : request{mesh, frontCamera(size, scale), size, {}, samples, {}} {
    Renderer().draw(*this, request);
  }
  const FrameRequest request;
};

} // namespace

class RendererTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void coversExactlyItsPixels_data() {
    const Vela::Test::Rows<Mesh, int, QRect> row("mesh", "oversampling", "pixels");
    const QRect square(60, 40, 80, 80);
    row("common edges on pixel centres", Test::square(1, 40), 1, square);
    row("triangles smaller than a pixel", Test::square(1, 150), 1, square);
    row("oversampled", Test::square(1, 7), 2, square);
    row("behind the eye", Test::square(1, 2, frontCamera(ImageSize, Scale).eye().z() + 1), 1, {});
    row("broken",
        {{{std::nanf(""), 0, 0}, {1, 0, 0}, {0, 1, 0}, {0, 0, 0}, {1e38F, 1e38F, 0}, {-1e38F, 1e38F, 1e38F}},
         {{0, 1, 2}, {1, 1, 1}, {1, 3, 1}, {0, 0, 0}}},
        1, {});
    row("no mesh", {}, 1, {});
  }
  void coversExactlyItsPixels() {
    QFETCH(Mesh, mesh);
    QFETCH(int, oversampling);
    QFETCH(QRect, pixels);
    const Picture picture(mesh, ImageSize, Scale, oversampling);
    const QRect part(100, 50, 90, 70);
    QCOMPARE(Renderer::find(picture.request, part).trianglesIn(part), picture.trianglesIn(part));
    for (int y = 0; y < ImageSize.height(); ++y) {
      for (int x = 0; x < ImageSize.width(); ++x) {
        const bool inside = pixels.contains(x, y);
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
    for (const QPoint& pixel : {QPoint(0, 0), QPoint(319, 239), QPoint(160, 5), QPoint(9, 230)}) {
      const auto hit = picture.pick(pixel);
      QVERIFY(hit);
      const float reach = std::max(std::abs(hit->point.x()), std::abs(hit->point.y()));
      QVERIFY2(std::abs(reach - 1) < 1e-3F, qPrintable(QString::number(reach)));
      QVERIFY(hit->point.z() < eye);
    }
  }

  void withoutRoomThereIsNoImage() {
    const Picture none(Test::cube(1), {}, 20);
    QVERIFY(none.image().isNull() && !none.pick({0, 0}));
  }
};

VELA_TEST_MAIN(RendererTest)
#include "renderer_test.moc"
