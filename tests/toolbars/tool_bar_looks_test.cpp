// SPDX-License-Identifier: MIT
#include "tool_button_fixture.h"

#include <support/screen_record.h>

#include <QGraphicsDropShadowEffect>

using namespace Vela::UiBase;

namespace {

void borderGroups(ToolBar& bar) {
  bar.SetBorder(3, Qt::red, true);
  bar.SetRoundCorner(AllRoundCorners, OuterRoundCorner, 9);
  bar.SetGroupBackColor(Qt::yellow);
  bar.SetGroupContentMargins({3, 4, 5, 6});
}

template <Qt::ToolBarArea area>
void roundCorners(MenuStage& stage) {
  stage.bar->SetArea(area);
  stage.bar->SetBorder(2, QColor(), false);
  stage.bar->SetRoundCorner(OuterRoundCorner, OuterRoundCorner, 12);
  stage.bar->SetOffset({9, 7});
}

void separate(MenuStage& stage) {
  stage.bar->SetButtonSeparatorColor(Qt::red);
  stage.bar->SetButtonSpacing(6);
  stage.bar->SetButtonGroupSpacing(21);
  stage.bar->SetCentered(true);
}

template <Qt::ToolBarArea area, int width, int height>
void narrow(MenuStage& stage) {
  stage.bar->SetArea(area);
  stage.window.resize(width, height);
}

void mirror(MenuStage& stage) { stage.window.setLayoutDirection(Qt::RightToLeft); }

const Way<MenuStage> looks[] = {
    {"groups", [](MenuStage& stage) { borderGroups(*stage.bar), mirror(stage); }},
    {"left", roundCorners<Qt::LeftToolBarArea>},
    {"right", roundCorners<Qt::RightToolBarArea>},
    {"bottom", roundCorners<Qt::BottomToolBarArea>},
    {"nowhere", roundCorners<Qt::NoToolBarArea>},
    {"separators", separate},
    {"separators, mirrored", [](MenuStage& stage) { separate(stage), mirror(stage); }},
    {"grid", [](MenuStage& stage) { separate(stage), stage.bar->SetGridLayout(2); }},
    {"bare, at the right",
     [](MenuStage& stage) {
       stage.bar->SetBackColor(Qt::transparent);
       stage.bar->SetGroupBackColor(QColor());
       stage.bar->SetButtonDefaultMenuParameters(false, {ArrowRight, 17, true}, Left, 13, AlignEnd, {4, 8});
       stage.bar->SetArea(Qt::RightToolBarArea);
     }},
    {"texts",
     [](MenuStage& stage) {
       stage.bar->SetToolButtonStyle(Qt::ToolButtonTextUnderIcon);
       stage.bar->SetIconSize({});
       stage.bar->SetButtonSize({});
       stage.bar->SetButtonStyleSheet("QToolButton { background: pink; }", true);
     }},
    {"copied",
     [](MenuStage& stage) {
       const ToolBar other(&stage.window, Qt::TopToolBarArea);
       borderGroups(const_cast<ToolBar&>(other));
       other.GetShadow()->setBlurRadius(30);
       stage.bar->CopyAllParametersFrom(&other);
       stage.bar->EnableShadow(false);
       stage.bar->EnableShadow(true);
     }},
    {"narrow", narrow<Qt::TopToolBarArea, 150, 300>},
    {"narrow, mirrored",
     [](MenuStage& stage) { narrow<Qt::BottomToolBarArea, 150, 300>(stage), mirror(stage); }},
    {"low", narrow<Qt::LeftToolBarArea, 300, 200>},
};

} // namespace

/// How a toolbar lays out and paints its buttons, and where their menus stand.
class ToolBarLooksTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void showsItsLooks_data() { addRows(looks); }
  void showsItsLooks() {
    QFETCH(int, way);
    MenuStage stage;
    for (const char* const group : {"first", "second"}) {
      stage.bar->AddAction(new QAction(coloredIcon(Qt::cyan), "On", stage.view), group)->setEnabled(false);
      stage.bar->AddAction(new QAction(coloredIcon(Qt::green), "Hidden", stage.view), group)->hide();
    }
    looks[way].go(stage);
    Vela::Test::settle();
    stage.button->ShowMenu();
    VELA_COMPARE_SCREEN(QStringLiteral("panel of a bar, ") + looks[way].name, Vela::Test::OnlyAsItIs);
    stage.button->HideMenu();
    stage.menuButton->ShowMenu();
    VELA_COMPARE_SCREEN(QStringLiteral("menu of a bar, ") + looks[way].name, Vela::Test::AlsoDark);
  }

  void nothingComesOfNothing() {
    MenuStage stage;
    ToolBar& bar = *stage.bar;
    const auto before = bar.Buttons();
    QVERIFY(!bar.AddAction(nullptr) && !bar.AddAction(nullptr, stage.view));
    QVERIFY(!ToolBar::CreateToolButton(nullptr, stage.command, bar));
    QVERIFY(!ToolBar::CreateToolButton(&bar, nullptr, bar));
    bar.AddCommandGroup(nullptr);
    bar.AddToolButton(nullptr);
    bar.AddToolButton(stage.plain);
    bar.RemoveCommand(nullptr);
    bar.AddCallbackHandler(nullptr, stage.command);
    ToolBar::ApplyDefaultToolbarParams(nullptr, "none");
    bar.CopyAllParametersFrom(nullptr);
    QCOMPARE(bar.Buttons(), before);
    QVERIFY(!bar.FindOneButton("", true) && !bar.FindOneButton("Inner", false) && !bar.DismissLeafMenu());
    QVERIFY(!bar.HiddenByRequest() && bar.InShowMode());
    bar.HideMe(true);
    QVERIFY(bar.HiddenByRequest() && !bar.InShowMode());
    ToolBar::ApplyDefaultToolbarParams(&bar, "named");
    QVERIFY(bar.objectName() == "named" && bar.accessibleName() == "named");
  }
};

VELA_TEST_MAIN(ToolBarLooksTest)
#include "tool_bar_looks_test.moc"
