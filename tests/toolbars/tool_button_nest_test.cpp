// SPDX-License-Identifier: MIT
#include "tool_button_fixture.h"

#include <QSignalSpy>

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
