// SPDX-License-Identifier: MIT
#include "tool_button_fixture.h"

#include <support/rows.h>
#include <support/screen_record.h>

using namespace Vela::UiBase;

/// How a toolbar lays out and paints its buttons, and where their menus stand.
class ToolBarLooksTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void showsItsLooks_data() {
    ToolBarParams groups, corners, separators, bare, texts;
    groups.groupMargins = {3, 4, 5, 6};
    groups.groupBackColor = Qt::yellow;
    groups.borderColor = Qt::red;
    groups.borderAroundGroups = true;
    groups.barCorners = AllRoundCorners;
    groups.groupCorners = corners.barCorners = corners.groupCorners = OuterRoundCorner;
    groups.borderWidth = corners.borderWidth = 3;
    groups.cornerRadius = corners.cornerRadius = 12;
    corners.offset = {9, 7};
    separators.separatorColor = Qt::red;
    separators.buttonSpacing = 6;
    separators.groupSpacing = 21;
    separators.centered = true;
    bare.backColor = Qt::transparent;
    bare.groupBackColor = QColor();
    bare.menu = {false, {ArrowRight, 17, true}, Left, 13, AlignEnd, {4, 8}};
    texts.buttonStyle = Qt::ToolButtonTextUnderIcon;
    texts.iconSize = texts.buttonSize = QSize();
    texts.buttonStyleSheet = "QToolButton { background: pink; }";
    const Vela::Test::Rows<Qt::ToolBarArea, bool, int, QSize, ToolBarParams> row("area", "mirrored",
                                                                                 "columns", "size", "params");
    const QSize wide(700, 500);
    row("groups", Qt::TopToolBarArea, true, 0, wide, groups);
    row("left", Qt::LeftToolBarArea, false, 0, wide, corners);
    row("right", Qt::RightToolBarArea, false, 0, wide, corners);
    row("bottom", Qt::BottomToolBarArea, false, 0, wide, corners);
    row("nowhere", Qt::NoToolBarArea, false, 0, wide, corners);
    row("separators", Qt::RightToolBarArea, false, 0, wide, separators);
    row("separators, mirrored", Qt::TopToolBarArea, true, 0, wide, separators);
    row("grid", Qt::TopToolBarArea, false, 2, wide, separators);
    row("bare", Qt::RightToolBarArea, false, 0, wide, bare);
    row("texts", Qt::TopToolBarArea, false, 0, wide, texts);
    row("narrow", Qt::TopToolBarArea, false, 0, {150, 300}, {});
    row("narrow, mirrored", Qt::BottomToolBarArea, true, 0, {150, 300}, {});
    row("low", Qt::LeftToolBarArea, false, 0, {300, 200}, {});
  }
  void showsItsLooks() {
    QFETCH(Qt::ToolBarArea, area);
    QFETCH(bool, mirrored);
    QFETCH(int, columns);
    QFETCH(QSize, size);
    QFETCH(ToolBarParams, params);
    MenuStage stage;
    for (const char* const group : {"first", "second"}) {
      stage.bar->AddAction(new QAction(coloredIcon(Qt::cyan), "On", stage.view), group)->setEnabled(false);
      stage.bar->AddAction(new QAction(coloredIcon(Qt::green), "Hidden", stage.view), group)->hide();
    }
    stage.window.resize(size);
    stage.window.setLayoutDirection(mirrored ? Qt::RightToLeft : Qt::LeftToRight);
    stage.bar->SetArea(area);
    stage.bar->SetGridLayout(columns);
    ToolBar other(nullptr, area);
    other.SetParams(params);
    stage.bar->CopyAllParametersFrom(&other);
    Vela::Test::settle();
    stage.button->ShowMenu();
    VELA_COMPARE_SCREEN(QStringLiteral("panel of a bar, ") + QTest::currentDataTag(), Vela::Test::OnlyAsItIs);
    stage.button->HideMenu();
    stage.menuButton->ShowMenu();
    VELA_COMPARE_SCREEN(QStringLiteral("menu of a bar, ") + QTest::currentDataTag(), Vela::Test::AlsoDark);
    const ToolButton* const late = stage.bar->AddAction(new QAction("Late", stage.view));
    QVERIFY(params.buttonStyleSheet.isEmpty() || late->styleSheet() == params.buttonStyleSheet);
  }

  void nothingComesOfNothing() {
    MenuStage stage;
    ToolBar& bar = *stage.bar;
    const auto before = bar.Buttons();
    QVERIFY(!bar.AddAction(nullptr) && !bar.AddAction(nullptr, stage.view));
    QVERIFY(!ToolBar::CreateToolButton(nullptr, stage.command, bar));
    QVERIFY(!ToolBar::CreateToolButton(&bar, nullptr, bar));
    bar.AddCommandGroup(nullptr);
    bar.RemoveCommand(nullptr);
    QCOMPARE(bar.Buttons(), before);
    QVERIFY(!bar.FindOneButton("", true) && !bar.FindOneButton("Inner", false) && !bar.DismissLeafMenu());
    QVERIFY(!bar.HiddenByRequest() && bar.InShowMode());
    bool shows = true; // up to the start of a hide
    connect(&bar, &ToolBar::ButtonMenuVisibilityChange, &bar, [&] { shows = bar.InShowMode(); });
    stage.menuButton->ShowMenu();
    QVERIFY(shows);
    bar.HideMe(true);
    QVERIFY(!shows && bar.HiddenByRequest() && !bar.InShowMode());
  }
};

VELA_TEST_MAIN(ToolBarLooksTest)
#include "tool_bar_looks_test.moc"
