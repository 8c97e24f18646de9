// SPDX-License-Identifier: MIT
#include <support/test_case.h>
#include <vgsdevices/annotation_device.h>
#include <vgsobjects/line_object.h>
#include <vgsobjects/point_object.h>
#include <vgsobjects/text_object.h>

using namespace Vela::Graphics;
using namespace Vela::Common;

namespace {

// x and y are pixels of the view; what has a negative z is behind the eye.
std::optional<QPointF> look(const QVector3D& point) {
  return point.z() < 0 ? std::nullopt : std::optional(point.toPointF());
}

QImage drawn(const AnnotationObject& object) {
  QImage image(200, 120, QImage::Format_RGB32);
  image.setDevicePixelRatio(2);
  image.fill(Qt::white);
  QPainter painter(&image);
  object.draw(AnnotationDevice(painter, QPalette(), look));
  return image;
}

bool isBlank(const QImage& image) {
  QImage blank = image;
  blank.fill(image.pixel(0, 0));
  return image == blank;
}

} // namespace

class AnnotationsTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void standAtTheirPointsInDevicePixels() {
    PointObject point({30, 20, 1});
    point.setColor(Qt::red);
    const QImage image = drawn(point);
    QCOMPARE(image.pixelColor(60, 40), QColor(Qt::red));
    QCOMPARE(image.pixelColor(60, 40 + 2 * 10), QColor(Qt::white));

    LineObject line({10, 50, 1}, {90, 50, 1});
    line.setColor(Qt::blue);
    QCOMPARE(drawn(line).pixelColor(100, 100), QColor(Qt::blue));
  }

  void behindTheEyeNothingIsDrawn() {
    QVERIFY(isBlank(drawn(PointObject({30, 20, -1}))));
    QVERIFY(isBlank(drawn(TextObject({30, 20, -1}, "text"))));
    QVERIFY(isBlank(drawn(LineObject({30, 20, 1}, {60, 20, -1}))));
    QVERIFY(!isBlank(drawn(LineObject({30, 20, 1}, {60, 20, 1}))));
  }

  void linesTellTheirLength() {
    LineObject line({0, 0, 0}, {0, 254, 0});
    QCOMPARE(line.text(), formatValue(254, Millimetre));
    line.setUnits(Millimetre, Inch);
    QCOMPARE(line.text(), formatValue(10, Inch));
    line.setText("edge");
    QCOMPARE(line.text(), "edge");
  }
};

VELA_TEST_MAIN(AnnotationsTest)
#include "annotations_test.moc"
