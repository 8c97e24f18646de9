// SPDX-License-Identifier: MIT
#include "arrowed_window_fixture.h"

#include <support/rows.h>
#include <support/test_case.h>

#include <QGraphicsDropShadowEffect>
#include <QScreen>

#include <algorithm>
#include <cmath>

using namespace Vela::UiBase;
using Vela::Test::settle;

namespace {

constexpr int VisibleAlpha = 56;

struct Painted {
  QRect extent;
  /// How far the arrow is painted beyond the centre of the tip, in its direction.
  double beyondTip = -1e9;
};

/// What is painted, in pixels of the window.
Painted paintedBy(ArrowedWindow& window, int angle, int ratio) {
  const QImage picture = pictureOf(window, ratio);
  const QPointF direction(std::cos(angle * M_PI / 180), std::sin(angle * M_PI / 180));
  const QPointF half(0.5, 0.5);
  Painted painted;
  for (int y = 0; y < picture.height(); ++y) {
    for (int x = 0; x < picture.width(); ++x) {
      if (qAlpha(picture.pixel(x, y)) < VisibleAlpha)
        continue;
      const QPoint pixel(x / ratio, y / ratio);
      painted.extent |= QRect(pixel, QSize(1, 1));
      const QPointF fromTip = (QPointF(x, y) + half) / ratio - QPointF(window.GetArrowPoint()) - half;
      if (!window.GetBounds().contains(pixel))
        painted.beyondTip = std::max(painted.beyondTip, QPointF::dotProduct(fromTip, direction));
    }
  }
  return painted;
}

bool isPainted(ArrowedWindow& window, const QPoint& pixel, int ratio) {
  const QImage part = pictureOf(window, ratio).copy(QRect(pixel * ratio, QSize(ratio, ratio)));
  int alpha = 0;
  for (int i = 0; i < ratio * ratio; ++i)
    alpha = std::max(alpha, qAlpha(part.pixel(i % ratio, i / ratio)));
  return alpha >= VisibleAlpha;
}

/// How many pixels differ by more than antialiasing does.
int strayPixels(const QImage& a, const QImage& b) {
  constexpr int Tolerance = 2;
  int count = 0;
  for (int i = 0; i < a.width() * a.height(); ++i) {
    const QRgb one = a.pixel(i % a.width(), i / a.width());
    const QRgb other = b.pixel(i % a.width(), i / a.width());
    count += std::max({std::abs(qRed(one) - qRed(other)), std::abs(qGreen(one) - qGreen(other)),
                       std::abs(qBlue(one) - qBlue(other))}) > Tolerance;
  }
  return count;
}

} // namespace

class ArrowedWindowPictureTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void tipAndBodyArePaintedWhereTheyAreSaidToBe_data() {
    const Vela::Test::Rows<SArrowParam> row("arrow");
    for (int position = ArrowTop; position <= ArrowBottomLeft; ++position) {
      SArrowParam arrow;
      arrow.position = EArrowPosition(position);
      row("position " + QByteArray::number(position), arrow);
      arrow.offset = position == ArrowTopRight || position == ArrowBottomRight ? -7 : 7;
      arrow.offsetAlongX = position != ArrowLeft && position != ArrowRight;
      arrow.length = 15;
      arrow.tipAngle = 60;
      row("slid, position " + QByteArray::number(position), arrow);
      for (const int turn : {-35, -20, 20, 35}) {
        arrow.offset = 0;
        arrow.fixedAngle = true;
        arrow.angle = defaultArrowAngle(arrow.position) + turn;
        row("turned by " + QByteArray::number(turn) + ", position " + QByteArray::number(position), arrow);
      }
    }
    row("far to the left", {ArrowBottom, 10, false, 0, 90, true, -31, {}});
    row("short", {ArrowRight, 1, false, 0, 90, true, 0, {}});
    row("long and sharp", {ArrowTop, 40, false, 0, 30, true, 0, {}});
  }
  void tipAndBodyArePaintedWhereTheyAreSaidToBe() {
    QFETCH(SArrowParam, arrow);
    struct Look {
      int width;
      Qt::PenJoinStyle join;
    };
    for (const Look& look : {Look{0, Qt::BevelJoin}, Look{1, Qt::MiterJoin}, Look{2, Qt::RoundJoin},
                             Look{3, Qt::BevelJoin}, Look{4, Qt::MiterJoin}}) {
      ArrowedWindow window;
      window.AttachWidget(new ArrowedContent({70, 40}));
      window.SetBorder(Qt::darkBlue, look.width, Qt::SolidLine, look.join);
      window.SetContentMargin(5);
      SArrowParam laidOut = arrow;
      QSize size;
      QPoint tip;
      QVERIFY(window.GetArrowWindowSize(laidOut, size, tip));
      QCOMPARE(window.size(), size);
      QCOMPARE(window.GetArrowPoint(), tip);
      QCOMPARE(window.rect(), window.GetBounds() | QRect(tip, QSize(1, 1)));
      for (const int ratio : {1, 2}) {
        const Painted painted = paintedBy(window, laidOut.angle, ratio);
        const QByteArray context = "border " + QByteArray::number(look.width) + " at " +
                                   QByteArray::number(ratio) + ", beyond the tip by " +
                                   QByteArray::number(painted.beyondTip);
        QVERIFY2(isPainted(window, tip, ratio), context);
        const double toEdge = laidOut.angle % 90 == 0 ? 0.5 - 0.5 / ratio : 0.75;
        QVERIFY2(painted.beyondTip <= toEdge + 1e-6, context);
        QVERIFY2(painted.extent == window.rect(), context);
      }
    }
  }

  void shadowMovesWithTheWindow() {
    QWidget view;
    view.resize(300, 200);
    ArrowedWindow window(&view);
    window.AttachWidget(new ArrowedContent({70, 40}));
    window.GetShadow()->setColor(Qt::black);
    window.EnableShadow(true);
    window.move(30, 30);
    view.show();
    QVERIFY(QTest::qWaitForWindowExposed(&view));
    window.move(120, 90);
    settle();
    QScreen& screen = *view.screen();
    const QImage onScreen = screen.grabWindow(view.winId()).toImage().convertToFormat(QImage::Format_RGB32);
    QImage rendered(view.size(), QImage::Format_RGB32);
    view.render(&rendered);
    QCOMPARE(strayPixels(onScreen, rendered), 0);
  }
};

VELA_TEST_MAIN(ArrowedWindowPictureTest)
#include "arrowed_window_picture_test.moc"
