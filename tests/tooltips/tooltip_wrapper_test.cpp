// SPDX-License-Identifier: MIT
#include "tooltip_fixture.h"

#include <support/rows.h>
#include <ui_base/tooltips/tooltip_wrapper.h>

using namespace Vela::UiBase;

namespace {

constexpr int AT_ONCE = TooltipFixture::AT_ONCE;
constexpr int NEVER = TooltipFixture::NEVER;

} // namespace

class TooltipWrapperTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void showsAtAPoint() {
    TooltipFixture f;
    TooltipWrapper wrapper("spot");
    wrapper.Show(f.window->mapToGlobal(QPoint(300, 200)), true, ShowUntilHidden);
    QVERIFY(!wrapper.IsVisible()); // nothing to show
    wrapper.SetTooltipText("Pick a point");
    wrapper.Show(f.window->mapToGlobal(QPoint(300, 200)), true, ShowUntilHidden);
    const ArrowedWindow* const shown = wrapper.GetArrowedWindow();
    const QPoint tip = shown->mapTo(f.window, shown->GetArrowPoint());
    QVERIFY(wrapper.IsVisible() && shown->isVisible());
    QCOMPARE(tip.x(), 300);
    QVERIFY(tip.y() < 200 && tip.y() > 180);
    // A longer text grows around the place it points at.
    const int width = shown->width();
    wrapper.UpdateText("Pick a point on the surface of the mesh");
    QVERIFY(shown->width() > width);
    QCOMPARE(shown->mapTo(f.window, shown->GetArrowPoint()), tip);
    // Without a point it comes where it was.
    wrapper.HideTooltip();
    wrapper.Show({}, false, ShowUntilHidden);
    QCOMPARE(shown->mapTo(f.window, shown->GetArrowPoint()), tip);
  }

  void goesByItself_data() {
    const Vela::Test::Rows<int, int, bool, bool> row("showDuration", "dismiss", "delayHide", "stays");
    row("after its duration", AT_ONCE, NEVER, false, false);
    row("not before", NEVER, AT_ONCE, false, true);
    row("shortened", NEVER, AT_ONCE, true, false);
    row("lengthened", AT_ONCE, NEVER, true, true);
  }
  void goesByItself() {
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
    wrapper.Show({}, false, ShowUntilHidden);
    Vela::Test::letTimePass(1);
    QVERIFY(wrapper.IsVisible());
  }

  void goesWithItsContent() {
    for (const bool arrowed : {true, false}) {
      TooltipFixture f;
      TooltipWrapper wrapper("spot");
      auto* const content = ATooltipObject::CreateTooltipControl("x");
      wrapper.SetTooltipControl(content, arrowed);
      wrapper.Show(f.window->mapToGlobal(QPoint(300, 200)), true, ShowUntilHidden);
      QVERIFY(content->isVisible() && content->window() == f.window);
      content->hide(); // whoever hides it
      QVERIFY(!wrapper.IsVisible());
      wrapper.Show({}, false, ShowUntilHidden);
      QVERIFY(wrapper.IsVisible() && content->isVisible());
      wrapper.HideTooltip();
      QVERIFY(!content->isVisible());
    }
  }
};

VELA_TEST_MAIN(TooltipWrapperTest)
#include "tooltip_wrapper_test.moc"
