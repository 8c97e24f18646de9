// SPDX-License-Identifier: MIT
#include "tooltip_fixture.h"

using namespace Vela::UiBase;

class TooltipLifetimeTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void textOutlivesTheLayerItWasShownOn() {
    TooltipFixture f;
    auto* const layer = new QWidget(f.window);
    f.tooltip->SetTooltipLayer(layer);
    f.tooltip->ShowTooltip();
    QVERIFY(f.tooltip->IsVisible());
    delete layer;
    f.tooltip->ShowTooltip();
    QVERIFY(f.tooltip->IsVisible() && f.shown()->isVisible());
    QCOMPARE(f.shown()->parentWidget(), f.window);
  }

  void unusedObjectsMakeNothing() {
    TooltipFixture f;
    const auto before = qApp->allWidgets().size();
    TooltipObject tooltip(QStringLiteral("test"));
    tooltip.SetTooltipType(RichTooltip);
    tooltip.SetTooltipText(QStringLiteral("text"));
    tooltip.AttachTo(f.window);
    QCOMPARE(qApp->allWidgets().size(), before);
    QVERIFY(tooltip.children().isEmpty());
  }
};

VELA_TEST_MAIN(TooltipLifetimeTest)
#include "tooltip_lifetime_test.moc"
