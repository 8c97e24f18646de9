// SPDX-License-Identifier: MIT
#include "arrowed_window_fixture.h"

#include <support/rows.h>
#include <support/test_case.h>

#include <QGraphicsDropShadowEffect>
#include <QGraphicsOpacityEffect>
#include <QLabel>
#include <QLayout>
#include <QPointer>

using namespace Vela::UiBase;
using Vela::Test::settle;

namespace {

class OpenWindow : public ArrowedWindow {
public:
  using ArrowedWindow::ArrowedWindow;
  using ArrowedWindow::InternalWidget;
};

int angleOf(const ArrowedWindow& window) {
  SArrowParam arrow;
  return window.GetCurrentArrowParam(arrow) ? arrow.angle : -1;
}

} // namespace

class ArrowedWindowTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void arrowsAreTurnedOutOfTheContent_data() {
    // The anchor within the content of 81 x 41.
    const Vela::Test::Rows<SArrowParam, int, QPoint> row("arrow", "angle", "anchor");
    row("angle of the position", {ArrowTop, 10, false, 17, 90, true, 0, {}}, 270, {40, 0});
    row("own angle", {ArrowTop, 10, true, 300, 90, true, 0, {}}, 300, {40, 0});
    row("top, pointing in", {ArrowTop, 10, true, 180, 90, true, 0, {}}, 270, {40, 0});
    row("left, just out", {ArrowLeft, 10, true, 91, 90, true, 0, {}}, 91, {0, 20});
    row("left, just in", {ArrowLeft, 10, true, 90, 90, true, 0, {}}, 180, {0, 20});
    row("right, just out", {ArrowRight, 10, true, 271, 90, true, 0, {}}, 271, {80, 20});
    row("right, just in", {ArrowRight, 10, true, 270, 90, true, 0, {}}, 0, {80, 20});
    row("corner, left edge first", {ArrowTopLeft, 10, true, 45, 90, true, 0, {}}, 180, {0, 0});
    row("corner, turned once only", {ArrowTopLeft, 10, true, 270, 90, true, 0, {}}, 180, {0, 0});
    row("corner, top edge after", {ArrowTopLeft, 10, true, 180, 90, true, 0, {}}, 270, {0, 0});
    row("slid along x", {ArrowTop, 10, false, 0, 90, true, 25, {}}, 270, {65, 0});
    row("slid to the corner", {ArrowTop, 10, false, 0, 90, true, -40, {}}, 180, {0, 0});
    row("slid along y", {ArrowTopLeft, 15, true, 180, 90, false, 20, {}}, 180, {0, 20});
    row("slid too far", {ArrowTop, 10, false, 0, 90, true, 41, {}}, 270, {40, 0});
    row("slid away from the edge", {ArrowLeft, 10, false, 0, 90, true, -1, {}}, 180, {0, 20});
  }
  void arrowsAreTurnedOutOfTheContent() {
    QFETCH(SArrowParam, arrow);
    QFETCH(QPoint, anchor);
    ArrowedWindow window;
    window.SetContentMargin(6);
    window.SetArrow(arrow); // before there is anything to sit at
    auto* const content = new ArrowedContent({81, 41});
    window.AttachWidget(content);
    SArrowParam current;
    QVERIFY(window.GetCurrentArrowParam(current));
    QTEST(current.angle, "angle");
    QCOMPARE(current.anchor - content->pos(), anchor);
    QCOMPARE(window.GetArrowParams().constFirst(), current);
  }

  void whichArrowIsCurrent() {
    ArrowedWindow window;
    SArrowParam arrow;
    QSize size;
    QPoint tip;
    QVERIFY2(!window.GetArrowWindowSize(arrow, size, tip), "no content");
    window.AttachWidget(new ArrowedContent({60, 30}));
    QVERIFY(!window.GetCurrentArrowParam(arrow));
    const QSize bare = window.size();

    window.AddArrow(ArrowTop, 10, false, 0, 90, true, 0);
    QCOMPARE(window.size(), bare + QSize(0, 10));
    window.AddArrow(ArrowLeft, 10, false, 0, 90, true, 0);
    QCOMPARE(window.size(), bare + QSize(0, 10));
    QCOMPARE(angleOf(window), 270);
    QCOMPARE(window.GetArrowParams().at(1).angle, 180);

    arrow = window.GetArrowParams().at(1);
    QVERIFY(window.GetArrowWindowSize(arrow, size, tip));
    QCOMPARE(size, bare + QSize(10, 0));
    arrow.position = NoArrow;
    QVERIFY(!window.GetArrowWindowSize(arrow, size, tip));
    window.SetArrow(arrow);
    QCOMPARE(window.GetArrowParams().size(), 2);
    QCOMPARE(angleOf(window), 180);
    window.SetArrow(ArrowBottom, 10, false, 0, 90, true, 0);
    QCOMPARE(window.GetArrowParams().size(), 1);
    QCOMPARE(angleOf(window), 90);
  }

  void followsItsContentWithTheTipInPlace() {
    QWidget view;
    view.resize(400, 300);
    ArrowedWindow window(&view);
    auto* const content = new ArrowedContent({60, 30});
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

  void textsAreAsHighAsTheirWidthAsks() {
    ArrowedWindow window;
    auto* const label = new QLabel(QStringLiteral("many words to wrap ").repeated(9));
    label->setWordWrap(true);
    label->setFixedWidth(120);
    window.AttachWidget(label);
    QCOMPARE(label->size(), QSize(120, label->heightForWidth(120)));
    window.AttachWidget(new ArrowedContent({90, 45}));
    QVERIFY(label->isHidden() && label->parent() == &window);
  }

  void hidesWithItsContentButNotForAnAncestor() {
    QWidget view;
    view.resize(300, 200);
    auto* const panel = new QWidget(&view);
    panel->resize(300, 200);
    ArrowedWindow window(panel);
    auto* const content = new ArrowedContent({60, 30});
    content->hide();
    window.AttachWidget(content);
    view.show();
    QVERIFY2(window.isVisible() && content->isVisible(), "the content is shown with the window");
    panel->hide();
    panel->show();
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
    auto* const content = new ArrowedContent({60, 30});
    first.AttachWidget(content);
    first.AttachWidget(nullptr);
    first.AttachWidget(&first);
    first.show();
    QCOMPARE(first.DetachWidget(), content);
    QVERIFY(!content->parent() && content->isHidden() && first.isHidden() && !first.InternalWidget());

    first.AttachWidget(content);
    first.show();
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

  void shadowKeepsItsLooks() {
    QWidget view;
    ArrowedWindow window(&view);
    window.AttachWidget(new ArrowedContent({60, 30}));
    QVERIFY(!window.graphicsEffect());
    window.GetShadow()->setBlurRadius(9);
    const QSize size = window.size();
    for (const bool on : {true, false, true}) {
      window.EnableShadow(on);
      QCOMPARE(window.graphicsEffect() == window.GetShadow(), on);
    }
    QCOMPARE(window.GetShadow()->blurRadius(), 9.0);
    QCOMPARE(window.size(), size);
    const QRect inside = window.GetBounds();
    window.setParent(nullptr);
    QCOMPARE(window.size(), size + QSize(18, 18));
    QCOMPARE(window.GetBounds(), inside.translated(9, 9));
    window.setGraphicsEffect(new QGraphicsOpacityEffect);
    window.EnableShadow(false);
    QVERIFY2(window.graphicsEffect(), "somebody else's effect stays");
    window.EnableShadow(true);
    QCOMPARE(window.graphicsEffect(), window.GetShadow());
  }

  void isReadAsItsContent() {
    ArrowedWindow window;
    auto* const content = new ArrowedContent({60, 30});
    content->setAccessibleName("Smooth");
    window.AttachWidget(content);
    QCOMPARE(window.accessibleName(), "Smooth");
    content->setAccessibleName("Smooth the mesh");
    window.show();
    QCOMPARE(window.accessibleName(), "Smooth the mesh");
  }
};

VELA_TEST_MAIN(ArrowedWindowTest)
#include "arrowed_window_test.moc"
