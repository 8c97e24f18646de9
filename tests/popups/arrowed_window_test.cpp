// SPDX-License-Identifier: MIT
#include <support/rows.h>
#include <support/screen_record.h>
#include <support/test_case.h>
#include <ui_base/popups/arrowed_window.h>

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
    row("right, just out", {ArrowRight, 10, true, 89, 90, true, 0, {}}, 89, {80, 20});
    row("right, just in", {ArrowRight, 10, true, 90, 90, true, 0, {}}, 0, {80, 20});
    row("bottom, just out", {ArrowBottom, 10, true, 179, 90, true, 0, {}}, 179, {40, 40});
    row("bottom, just in", {ArrowBottom, 10, true, 180, 90, true, 0, {}}, 90, {40, 40});
    row("bottom, just in on the other side", {ArrowBottom, 10, true, 360, 90, true, 0, {}}, 90, {40, 40});
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

  void looksAsRecorded() {
    QWidget view;
    view.resize(620, 720);
    for (int i = 0; i < 40; ++i) {
      auto* const window = new ArrowedWindow(&view);
      window->AttachWidget(new Content(i / 8 == 1 ? QSize(3, 3) : QSize(81, 41)));
      SArrowParam arrow;
      arrow.position = EArrowPosition(ArrowTop + i % 8);
      arrow.length = i < 32 ? 15 : 4 * (i - 32);
      if (i >= 24) {
        arrow.offset = arrow.position == ArrowTopRight || arrow.position == ArrowBottomRight ? -30 : 30;
        arrow.offsetAlongX = arrow.position != ArrowLeft && arrow.position != ArrowRight;
        arrow.tipAngle = 30 + 2 * i;
      }
      if (i >= 16) {
        arrow.fixedAngle = true;
        arrow.angle = defaultArrowAngle(arrow.position) + 9 * (i % 8) - 30;
        window->SetRoundCornerRadius(9);
        window->SetContentMargin(1);
        window->SetPartialBackgroundColor(true, {0, 12, 1, 15}, Qt::yellow);
      }
      window->SetArrow(arrow);
      const Qt::PenJoinStyle join = i < 16 ? Qt::MiterJoin : i < 32 ? Qt::BevelJoin : Qt::RoundJoin;
      window->SetBorder(Qt::darkBlue, i % 5, Qt::SolidLine, join);
      QVERIFY(window->rect() == (window->GetBounds() | QRect(window->GetArrowPoint(), QSize(1, 1))));
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
    content->hide();
    content->grow({70, 70});
    window.show();
    QVERIFY(fits());
  }

  void isDescribedAsItsContent() {
    ArrowedWindow window;
    auto* const content = new Content({60, 30});
    content->setWindowTitle("Mesh");
    content->setAccessibleDescription("of 3 parts");
    window.AttachWidget(content);
    QCOMPARE(window.accessibleName() + ' ' + window.accessibleDescription(), "Mesh of 3 parts");
    content->setAccessibleName("Netz");
    QEvent changed(QEvent::LanguageChange);
    QCoreApplication::sendEvent(content, &changed);
    QCOMPARE(window.accessibleName(), "Netz");
    window.setAccessibleName("own");
    window.setAccessibleDescription("words");
    QCoreApplication::sendEvent(content, &changed);
    QCOMPARE(window.accessibleName() + ' ' + window.accessibleDescription(), "own words");
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
    auto* const other = new Content({20, 10});
    first.AttachWidget(other);
    QVERIFY(other->isVisible() && content->isHidden());
    other->grow({40, 50});
    first.AttachWidget(other);
    QCOMPARE(other->size(), QSize(40, 50));
    auto* const second = new OpenWindow;
    second->AttachWidget(content);
    QVERIFY(first.InternalWidget() == other && first.isVisible());
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
