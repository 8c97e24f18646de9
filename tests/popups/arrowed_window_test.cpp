// SPDX-License-Identifier: MIT
#include <support/rows.h>
#include <support/screen_record.h>
#include <support/test_case.h>
#include <ui_base/popups/arrowed_window.h>

#include <algorithm>
#include <cmath>

using namespace Vela::UiBase;
using Vela::Test::Rows;
using Vela::Test::settle;

namespace {

/// A content of one size that paints nothing.
class Content : public QWidget {
public:
  explicit Content(const QSize& size) : m_size(size) {}

  QSize sizeHint() const override { return m_size; }
  void grow(const QSize& size) {
    m_size = size;
    updateGeometry();
  }

private:
  QSize m_size;
};

class OpenWindow : public ArrowedWindow {
public:
  using ArrowedWindow::InternalWidget;
};

struct Painted {
  QRect extent;
  /// How far the arrow is painted beyond the centre of the tip, in its direction.
  double beyondTip = -1e9;
};

/// What is painted, in pixels of the window, on a device of this many pixels to a pixel.
Painted paintedBy(ArrowedWindow& window, int angle, int ratio) {
  constexpr int VisibleAlpha = 56;
  QImage picture(window.size() * ratio, QImage::Format_ARGB32_Premultiplied);
  picture.setDevicePixelRatio(ratio);
  picture.fill(Qt::transparent);
  window.render(&picture, {}, {}, QWidget::DrawChildren);
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

} // namespace

class ArrowedWindowTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void arrowsAreTurnedOutOfTheContent_data() {
    // The anchor within the content of 81 x 41.
    const Rows<SArrowParam, int, QPoint> row("arrow", "angle", "anchor");
    row("angle of the position", {ArrowTop, 10, false, 17, 90, true, 0, {}}, 270, {40, 0});
    row("left, just out", {ArrowLeft, 10, true, 91, 90, true, 0, {}}, 91, {0, 20});
    row("left, just in", {ArrowLeft, 10, true, 90, 90, true, 0, {}}, 180, {0, 20});
    row("corner, left edge first", {ArrowTopLeft, 10, true, 45, 90, true, 0, {}}, 180, {0, 0});
    row("corner, top edge after", {ArrowTopLeft, 10, true, 180, 90, true, 0, {}}, 270, {0, 0});
    row("slid to the corner", {ArrowTop, 10, false, 0, 90, true, -40, {}}, 180, {0, 0});
    row("slid along y", {ArrowTopLeft, 15, true, 180, 90, false, 20, {}}, 180, {0, 20});
    row("slid too far", {ArrowTop, 10, false, 0, 90, true, 41, {}}, 270, {40, 0});
    row("slid away from the edge", {ArrowLeft, 10, false, 0, 90, true, -1, {}}, 180, {0, 20});
  }
  void arrowsAreTurnedOutOfTheContent() {
    QFETCH(SArrowParam, arrow);
    QFETCH(QPoint, anchor);
    ArrowedWindow window;
    window.SetArrow(arrow); // before there is anything to sit at
    auto* const content = new Content({81, 41});
    window.AttachWidget(content);
    SArrowParam current;
    QVERIFY(window.GetCurrentArrowParam(current));
    QTEST(current.angle, "angle");
    QCOMPARE(current.anchor - content->pos(), anchor);
  }

  void tipAndBodyArePaintedWhereTheyAreSaidToBe_data() {
    const Rows<SArrowParam> row("arrow");
    for (int position = ArrowTop; position <= ArrowBottomLeft; ++position) {
      SArrowParam arrow;
      arrow.position = EArrowPosition(position);
      arrow.offset = position == ArrowTopRight || position == ArrowBottomRight ? -7 : 7;
      arrow.offsetAlongX = position != ArrowLeft && position != ArrowRight;
      arrow.length = 15;
      arrow.tipAngle = 60;
      row("slid, position " + QByteArray::number(position), arrow);
      arrow.offset = 0;
      arrow.fixedAngle = true;
      arrow.angle = defaultArrowAngle(arrow.position) + (position % 2 ? 20 : -35);
      row("turned, position " + QByteArray::number(position), arrow);
    }
    row("short", {ArrowRight, 1, false, 0, 90, true, 0, {}});
    row("long and sharp", {ArrowTop, 40, false, 0, 30, true, 0, {}});
  }
  void tipAndBodyArePaintedWhereTheyAreSaidToBe() {
    QFETCH(SArrowParam, arrow);
    for (int border = 0; border <= 4; ++border) {
      ArrowedWindow window;
      window.AttachWidget(new Content({70, 40}));
      window.SetBorder(Qt::darkBlue, border, Qt::SolidLine, border % 2 ? Qt::MiterJoin : Qt::RoundJoin);
      SArrowParam laidOut = arrow;
      QSize size;
      QPoint tip;
      QVERIFY(window.GetArrowWindowSize(laidOut, size, tip));
      QCOMPARE(window.size(), size);
      QCOMPARE(window.GetArrowPoint(), tip);
      QCOMPARE(window.rect(), window.GetBounds() | QRect(tip, QSize(1, 1)));
      for (const int ratio : {1, 2}) {
        const Painted painted = paintedBy(window, laidOut.angle, ratio);
        const double toEdge = laidOut.angle % 90 == 0 ? 0.5 - 0.5 / ratio : 0.75;
        QVERIFY2(painted.beyondTip <= toEdge + 1e-6, QByteArray::number(painted.beyondTip));
        QCOMPARE(painted.extent, window.rect());
      }
    }
  }

  void looksAsRecorded() {
    QWidget view;
    view.resize(620, 440);
    for (int i = 0; i < 24; ++i) {
      auto* const window = new ArrowedWindow(&view);
      window->AttachWidget(new Content(i / 8 == 1 ? QSize(3, 3) : QSize(81, 41)));
      SArrowParam arrow;
      arrow.position = EArrowPosition(ArrowTop + i % 8);
      arrow.length = 15;
      if (i >= 16) {
        arrow.fixedAngle = true;
        arrow.angle = defaultArrowAngle(arrow.position) + 9 * (i % 8) - 30;
        window->SetRoundCornerRadius(9);
        window->SetContentMargin(1);
        window->SetPartialBackgroundColor(true, {0, 12, 1, 15}, Qt::yellow);
      }
      window->SetArrow(arrow);
      window->SetBorder(Qt::darkBlue, i % 3, Qt::SolidLine, i < 16 ? Qt::MiterJoin : Qt::BevelJoin);
      window->move(10 + 150 * (i % 4), 5 + 72 * (i / 4));
    }
    view.show();
    VELA_COMPARE_SCREEN("arrows");
  }

  void followsItsContentWithTheTipInPlace() {
    QWidget view;
    view.resize(400, 300);
    ArrowedWindow window(&view);
    auto* const content = new Content({60, 30});
    window.AttachWidget(content);
    window.SetArrow(ArrowRight, 10, false, 0, 90, true, 0);
    window.move(100, 100);
    view.show();
    const QPoint tip = window.mapToParent(window.GetArrowPoint());
    const auto fits = [&] {
      return window.GetBounds().contains(content->geometry()) && content->size() == content->sizeHint() &&
             window.rect() == (window.GetBounds() | QRect(window.GetArrowPoint(), QSize(1, 1)));
    };
    for (const QSize& size : {QSize(100, 90), QSize(40, 50)}) {
      content->grow(size);
      settle();
      QVERIFY(fits());
      QCOMPARE(window.mapToParent(window.GetArrowPoint()), tip);
    }
    window.hide();
    content->grow({70, 70});
    window.show();
    QVERIFY(fits());
  }

  void hidesWithItsContentButNotForAnAncestor() {
    QWidget view;
    QWidget panel(&view);
    ArrowedWindow window(&panel);
    auto* const content = new Content({60, 30});
    content->hide();
    window.AttachWidget(content);
    view.show();
    QVERIFY2(window.isVisible() && content->isVisible(), "the content is shown with the window");
    panel.hide();
    panel.show();
    QVERIFY(window.isVisible() && content->isVisible());
    content->hide();
    QVERIFY(window.isHidden());
    window.show();
    QVERIFY(content->isVisible());
    delete content;
    QVERIFY2(window.isHidden(), "nothing is left to be shown");
    window.show();
    settle();
    QVERIFY(!window.DetachWidget());
  }

  void contentIsGivenBackOrTakenAway() {
    OpenWindow first;
    auto* const content = new Content({60, 30});
    first.AttachWidget(content);
    first.AttachWidget(nullptr);
    first.AttachWidget(&first);
    first.show();
    QCOMPARE(first.DetachWidget(), content);
    QVERIFY(!content->parent() && content->isHidden() && first.isHidden() && !first.InternalWidget());

    content->resize(5, 5);
    first.AttachWidget(content);
    first.show();
    QCOMPARE(content->size(), QSize(60, 30));
    auto* const second = new OpenWindow;
    second->AttachWidget(content);
    QVERIFY(!first.InternalWidget() && first.isHidden());
    second->show();
    content->setParent(nullptr);
    QVERIFY(!second->InternalWidget() && second->isHidden());
    second->AttachWidget(content);
    const QPointer<QWidget> watched(content);
    delete second;
    QVERIFY(!watched);
  }

  void shadowTakesItsRoomAndLeavesOtherEffects() {
    ArrowedWindow window;
    auto* const content = new Content({60, 30});
    window.AttachWidget(content);
    window.GetShadow()->setBlurRadius(9);
    const QRect inside = window.GetBounds();
    window.EnableShadow(true);
    window.EnableShadow(false);
    QVERIFY(!window.graphicsEffect());
    window.EnableShadow(true);
    QCOMPARE(window.GetBounds(), inside.translated(9, 9));
    window.show();
    VELA_COMPARE_SCREEN("shadow");
    content->setPalette(Qt::red);
    settle();
    const QImage seen = window.screen()->grabWindow(window.winId()).toImage();
    const QPoint beside = (content->pos() - QPoint(1, 0)) * seen.devicePixelRatio();
    QVERIFY2(seen.pixelColor(beside).green() < 99, "it is as its content");
    window.setGraphicsEffect(new QGraphicsOpacityEffect);
    window.EnableShadow(false);
    QVERIFY2(window.graphicsEffect(), "somebody else's effect stays");
  }
};

VELA_TEST_MAIN(ArrowedWindowTest)
#include "arrowed_window_test.moc"
