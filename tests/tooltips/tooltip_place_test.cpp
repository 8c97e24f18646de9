// SPDX-License-Identifier: MIT
#include "tooltip_fixture.h"

#include <support/rows.h>
#include <support/screen_record.h>
#include <ui_base/tooltips/tooltip_wrapper.h>

using namespace Vela::UiBase;
using Vela::Test::Rows;

namespace {

constexpr int AT_ONCE = TooltipFixture::AT_ONCE;
constexpr int NEVER = TooltipFixture::NEVER;

} // namespace

/// On which layer and where tooltips stand, of widgets and of spots.
class TooltipPlaceTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void layers() {
    TooltipFixture f;
    TooltipManager& manager = TooltipManager::GetInstance();
    QWidget layer(f.window);
    layer.setGeometry(f.window->rect());
    manager.SetTooltipLayer("test", &layer);
    QCOMPARE(manager.getTooltipLayer(f.tooltip), &layer);
    auto* const content = new QLabel("x");
    f.other->SetTooltipLayer(&layer);
    f.other->SetTooltipControl(content, false);
    f.tooltip->ShowTooltip();
    QVERIFY(content->isHidden() && layer.isVisible() && f.shown()->parentWidget() == &layer);
    QWidget above(f.window);
    QWidget aboveIt(&layer);
    f.tooltip->ShowTooltip();
    QCOMPARE(f.window->children().constLast(), &layer);
    QCOMPARE(layer.children().constLast(), f.shown());

    // A layer of another window is not where the user looks, unless it is a window.
    QWidget elsewhere;
    manager.SetTooltipLayer("test", &elsewhere);
    QCOMPARE(manager.getTooltipLayer(f.tooltip), &elsewhere);
    QWidget foreign(&elsewhere);
    manager.SetTooltipLayer("test", &foreign);
    QCOMPARE(manager.getTooltipLayer(f.tooltip), f.window);
    manager.SetTooltipLayer("test", nullptr);

    // The widget goes to a window of its own, and its tooltip with it.
    f.widget->setParent(nullptr);
    f.widget->show();
    f.tooltip->ShowTooltip();
    QCOMPARE(f.shown()->parentWidget(), f.widget);
    f.tooltip->Detach();
    delete f.widget;
  }

  void types_data() {
    const Rows<ETooltipType, bool> row("type", "rich");
    row("quick", QuickTooltip, false);
    row("quick, beside", QuickSideTooltip, false);
    row("quick hint", QuickHintTooltip, false);
    row("rich", RichTooltip, true);
    row("rich, beside", RichSideTooltip, true);
  }
  void types() {
    QFETCH(const ETooltipType, type);
    QFETCH(const bool, rich);
    TooltipFixture f({30, 30, NEVER, NEVER, NEVER});
    f.tooltip->SetUseCustomTooltipSettings(false);
    f.tooltip->SetTooltipPlacement({.position = ArrowRight, .length = 30}, Left, 30, AlignEnd, {});
    f.tooltip->SetTooltipType(type); // which has its own
    QCOMPARE(f.tooltip->IsHoverEventsEnabled(), rich);
    f.moveTo(f.widget);
    QTRY_VERIFY(f.tooltip->IsVisible());
    VELA_COMPARE_SCREEN(QStringLiteral("tooltip_%1").arg(QTest::currentDataTag()), Vela::Test::AlsoDark);
    f.press(f.shown());
    QCOMPARE(f.tooltip->IsVisible(), rich);
  }

  void ownPlacement() {
    TooltipFixture f;
    f.tooltip->SetTooltipType(RichTooltip);
    for (const auto& [arrow, side] : {std::pair(ArrowLeft, Right), {ArrowTop, Bottom}, {NoArrow, Left}}) {
      if (arrow == NoArrow)
        f.tooltip->SetTooltipControl(new QLabel("Plain"), false);
      f.tooltip->SetTooltipPlacement({.position = arrow, .length = 25}, side, 9, AlignStart, {7, 3});
      f.tooltip->ShowTooltip();
      VELA_COMPARE_SCREEN(QStringLiteral("placed_tooltip_%1").arg(side), Vela::Test::OnlyAsItIs);
    }
  }

  void wrapperShowsAtAPoint() {
    TooltipFixture f;
    TooltipWrapper wrapper("spot");
    wrapper.Show(f.window->mapToGlobal(QPoint(300, 200)), true, ShowUntilHidden);
    QVERIFY(!wrapper.IsVisible()); // nothing to show
    wrapper.SetTooltipText("Pick a point");
    wrapper.Show(f.window->mapToGlobal(QPoint(300, 200)), true, ShowUntilHidden);
    const ArrowedWindow* const shown = wrapper.GetArrowedWindow();
    const QPoint tip = shown->mapTo(f.window, shown->GetArrowPoint());
    QCOMPARE(tip.x(), 300);
    Vela::Test::settle();
    // A longer text grows around the place it points at.
    wrapper.UpdateText("Pick a point on the surface of the mesh");
    Vela::Test::settle();
    QCOMPARE(shown->mapTo(f.window, shown->GetArrowPoint()), tip);
  }

  void wrapperGoesByItself_data() {
    const Rows<int, int, bool, bool> row("showDuration", "dismiss", "delayHide", "stays");
    row("after its duration", AT_ONCE, NEVER, false, false);
    row("not before", NEVER, AT_ONCE, false, true);
    row("shortened", NEVER, AT_ONCE, true, false);
    row("lengthened", AT_ONCE, NEVER, true, true);
  }
  void wrapperGoesByItself() {
    QFETCH(const int, showDuration);
    QFETCH(const int, dismiss);
    QFETCH(const bool, delayHide);
    QFETCH(const bool, stays);
    TooltipFixture f({AT_ONCE, dismiss, NEVER, showDuration, NEVER});
    TooltipWrapper wrapper("spot");
    wrapper.SetTooltipText("x");
    wrapper.Show(f.window->mapToGlobal(QPoint(300, 200)), true, ShowForDuration);
    if (delayHide)
      wrapper.DelayHide();
    Vela::Test::letTimePass(1);
    QCOMPARE(wrapper.IsVisible(), stays);
    // The time of one showing does not end the next.
    wrapper.Show({}, false, ShowForDuration);
    wrapper.Show({}, false, ShowUntilHidden);
    Vela::Test::letTimePass(1);
    QVERIFY(wrapper.IsVisible());
  }

  void wrapperGoesWithItsContent() {
    for (const bool arrowed : {true, false}) {
      TooltipFixture f;
      TooltipWrapper wrapper("spot");
      auto* const content = ATooltipObject::CreateTooltipControl("x");
      wrapper.SetTooltipControl(content, arrowed);
      wrapper.Show(f.window->mapToGlobal(QPoint(300, 200)), true, ShowUntilHidden);
      QVERIFY(content->isVisible() && content->window() == f.window);
      QCOMPARE(f.window->grab().toImage().pixelColor(content->mapTo(f.window, QPoint(1, 3))),
               content->palette().color(QPalette::Window));
      content->hide(); // whoever hides it
      QVERIFY(!wrapper.IsVisible());
      wrapper.Show({}, false, ShowUntilHidden);
      QVERIFY(wrapper.IsVisible() && content->isVisible());
      wrapper.HideTooltip();
      QVERIFY(!content->isVisible());
    }
  }
};

VELA_TEST_MAIN(TooltipPlaceTest)
#include "tooltip_place_test.moc"
