// SPDX-License-Identifier: MIT
#include "tool_button_fixture.h"

#include <support/rows.h>
#include <support/screen_record.h>

using namespace Vela::UiBase;

namespace {

const Way<MenuStage> extendEnds[] = {
    {"click", [](MenuStage& stage) { stage.click(stage.menuButton); }},
    {"space", [](MenuStage& stage) { stage.menuButton->setFocus(), stage.key(Qt::Key_Space); }},
    {"Close", [](MenuStage& stage) { stage.clickIn(stage.subFlyout, "Close"); }},
    {"escape", [](MenuStage& stage) { stage.key(Qt::Key_Escape); }},
    {"outside", [](MenuStage& stage) { stage.click(stage.field); }},
    {"off", [](MenuStage& stage) { stage.menuButton->SetExtendMode(false); }},
    {"shortcut of a locked one", [](MenuStage& stage) { stage.command->trigger(); }},
    {"sub-button", [](MenuStage& stage) { delete stage.subButton; }},
    {"flyout", [](MenuStage& stage) { delete stage.subFlyout; }},
    {"bar hidden", [](MenuStage& stage) { stage.bar->hide(); }},
};

} // namespace

class ToolButtonNestTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void buttonStandsInForTheExtendedOne_data() { addRows(extendEnds); }
  void buttonStandsInForTheExtendedOne() {
    QFETCH(int, way);
    MenuStage stage;
    stage.menuButton->SetExtendMode(true);
    stage.menuButton->SetClearSelectionOnHide(true);
    stage.subButton->Action()->setCheckable(true);
    QCOMPARE(stage.subButton->ExtendController(), stage.menuButton.data());
    QSignalSpy cleared(stage.menuButton, &ToolButtonWithButtonMenu::ButtonMenuCleared);
    stage.click(stage.menuButton);
    stage.click(stage.subButton);
    QVERIFY(stage.menuButton->IsInExtendMode() && stage.menuButton->isChecked());
    QCOMPARE(stage.menuButton->ExtendedButton(), stage.subButton.data());
    QCOMPARE(stage.bar->GetActiveButton(), stage.subButton.data());
    QVERIFY(stage.subFlyout->isVisible() && !stage.subBar->isVisible());
    QCOMPARE(shownColor(*stage.menuButton), QColor(Qt::green));
    QVERIFY(stage.plain->IsLocked() && stage.button->IsLocked() && !stage.menuButton->IsLocked());
    VELA_COMPARE_SCREEN("extended_button", Vela::Test::AlsoDark);
    const ToolButton* const late = stage.bar->AddAction(new QAction("Late", stage.view));
    Vela::Test::settle();
    QVERIFY(late->IsLocked());
    stage.plain->click();
    QVERIFY(stage.subFlyout->isVisible());
    cleared.clear();
    extendEnds[way].go(stage);
    Vela::Test::settle();
    QVERIFY(!stage.menuButton->IsInExtendMode() && !stage.menuButton->isChecked());
    QVERIFY(!stage.menuButton->ExtendedButton() && !stage.subBar->isVisible());
    QVERIFY(!stage.subFlyout || !stage.subFlyout->isVisible());
    QVERIFY(!stage.subButton || !stage.subButton->isChecked());
    QCOMPARE(shownColor(*stage.menuButton), QColor(Qt::red));
    QVERIFY(!stage.plain->IsLocked() && !stage.button->IsLocked() && !late->IsLocked());
    QCOMPARE(cleared.count(), 1);
    const bool other = stage.command->isActive(); // a shortcut opened it
    QCOMPARE(other, QByteArray(QTest::currentDataTag()) == "shortcut of a locked one");
    QCOMPARE(stage.bar->GetActiveButton(), other ? stage.button.data() : nullptr);
  }

  void menusAreInSightAtEveryEdge_data() {
    const Vela::Test::Rows<Qt::ToolBarArea, bool, QSize> row("area", "mirrored", "size");
    for (const auto area :
         {Qt::LeftToolBarArea, Qt::RightToolBarArea, Qt::TopToolBarArea, Qt::BottomToolBarArea}) {
      for (const bool mirrored : {false, true}) {
        for (const QSize size : {QSize(90, 40), QSize(300, 200), QSize(3840, 2160)})
          row(QByteArray::number(area) + (mirrored ? " mirrored " : " ") + QByteArray::number(size.width()),
              area, mirrored, size);
      }
    }
  }
  void menusAreInSightAtEveryEdge() {
    QFETCH(Qt::ToolBarArea, area);
    QFETCH(bool, mirrored);
    QFETCH(QSize, size);
    QWidget window;
    window.setLayoutDirection(mirrored ? Qt::RightToLeft : Qt::LeftToRight);
    window.resize(size);
    ToolBar bar(&window, area);
    bar.SetOffset({7, 3});
    ToolBar menu(&window, Qt::TopToolBarArea);
    for (int i = 0; i < 3; ++i)
      menu.AddAction(new QAction(coloredIcon(Qt::red), QString::number(i), &menu));
    QWidget panel(&window);
    panel.setMinimumSize(150, 110);
    ToolButtonWithMenu* const openers[] = {
        bar.AddAction(nullptr, coloredIcon(Qt::red), &menu, true, "menu"),
        bar.AddAction(new QAction(coloredIcon(Qt::red), "panel", &bar), &panel)};
    Vela::Test::showActive(window);
    bar.ShowMe();
    for (ToolButtonWithMenu* const opener : openers) {
      opener->ShowMenu();
      Vela::Test::settle();
      const auto* const arrows = qobject_cast<ArrowedWindow*>(opener->GetMenu()->parentWidget());
      const QWidget& popup = arrows ? *static_cast<const QWidget*>(arrows) : *opener->GetMenu();
      const QRect body = arrows ? arrows->GetBounds() : popup.rect();
      const QRect seen(popup.mapToGlobal(body.topLeft()), body.size());
      const QRect inWindow(window.mapToGlobal(QPoint()), window.size());
      QVERIFY((popup.isWindow() ? popup.screen()->availableGeometry() : inWindow).contains(seen));
      const QRect owner(opener->mapToGlobal(QPoint()), opener->size());
      QVERIFY(!inWindow.contains(owner) || !seen.intersects(owner));
      if (size.width() == 300)
        VELA_COMPARE_SCREEN(QStringLiteral("%1, area %2").arg(opener->text(), QTest::currentDataTag()),
                            Vela::Test::AlsoDark);
      opener->HideMenu();
    }
  }

  void buttonThatComesWhileTheExtendModeIsLeftIsFree() {
    MenuStage stage;
    stage.menuButton->SetExtendMode(true);
    stage.subButton->OnRequestShowMenu();
    QVERIFY(stage.menuButton->IsInExtendMode());
    const ToolButton* late = nullptr;
    connect(stage.subButton, &ToolButtonWithMenu::ButtonMenuVisibilityChange, stage.bar,
            [&] { late = stage.bar->AddAction(new QAction("late", stage.view)); });
    stage.menuButton->SetExtendMode(false);
    QVERIFY(late && !late->IsLocked());
  }

  void buttonStandsInForOneThatIsOpenAlready() {
    MenuStage stage;
    stage.subButton->ShowMenu();
    stage.subButton->SetExtendController(stage.menuButton);
    stage.subButton->OnRequestShowMenu();
    QCOMPARE(stage.menuButton->ExtendedButton(), stage.subButton.data());
    stage.subButton->HideMenu();
    QVERIFY(!stage.menuButton->IsInExtendMode() && !stage.plain->IsLocked());
  }

  void menuOfAnExtendedButtonStaysBesideIt() {
    MenuStage stage;
    stage.menuButton->SetExtendMode(true);
    stage.click(stage.menuButton);
    const QPoint place = stage.subBar->pos();
    stage.click(stage.subButton);
    for (int i = 0; i < 2; ++i) { // again as after a resize
      stage.menuButton->ShowMenu();
      QVERIFY(stage.menuButton->IsMenuShowing() && stage.menuButton->IsInExtendMode());
      QCOMPARE(stage.subBar->pos(), place);
    }
  }

  void nothingStandsInForNothing() {
    MenuStage stage;
    const ToolButtonWithButtonMenu* const back =
        stage.subBar->AddAction(nullptr, coloredIcon(Qt::blue), stage.bar, true, "Back");
    QVERIFY2(!back->GetMenu(), "nests have an end");
    QCOMPARE(stage.bar->MenuButtons(true).size(), 4);
    stage.menuButton->SetExtendMode(true);
    stage.subButton->SetMenu(nullptr);
    stage.click(stage.menuButton);
    stage.click(stage.subButton);
    QVERIFY(!stage.menuButton->IsInExtendMode() && !stage.plain->IsLocked());
  }
};

VELA_TEST_MAIN(ToolButtonNestTest)
#include "tool_button_nest_test.moc"
