// SPDX-License-Identifier: MIT
#include "tool_button_fixture.h"

#include <ui_base/toolbars/tool_button_arrow.h>
#include <vlk_license/license_service.h>

#include <QSignalSpy>

using namespace Vela::UiBase;

namespace {

class NoLicense : public Vela::License::ILicenseProvider {
public:
  Vela::License::ELicenseState state() const override { return Vela::License::NoLicense; }
  bool activate(const QString&, QString*) override { return false; }
};

const Way<MenuStage> extendEnds[] = {
    {"click", [](MenuStage& stage) { stage.click(stage.menuButton); }},
    {"space", [](MenuStage& stage) { stage.menuButton->setFocus(), stage.key(Qt::Key_Space); }},
    {"Close", [](MenuStage& stage) { stage.clickIn(stage.subFlyout, "Close"); }},
    {"escape", [](MenuStage& stage) { stage.key(Qt::Key_Escape); }},
    {"outside", [](MenuStage& stage) { stage.click(stage.field); }},
    {"off", [](MenuStage& stage) { stage.menuButton->SetExtendMode(false); }},
    {"no controller", [](MenuStage& stage) { stage.subButton->SetExtendController(nullptr); }},
    {"other controller", [](MenuStage& stage) { stage.subButton->SetExtendController(stage.field); }},
    {"shortcut of a locked one", [](MenuStage& stage) { stage.command->trigger(); }},
    {"sub-button", [](MenuStage& stage) { delete stage.subButton; }},
    {"flyout", [](MenuStage& stage) { delete stage.subFlyout; }},
    {"other menu", [](MenuStage& stage) { stage.menuButton->SetMenu(nullptr); }},
    {"bar hidden", [](MenuStage& stage) { stage.bar->hide(); }},
};

} // namespace

class ToolButtonNestTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void arrowPointsToTheMenu_data();
  void arrowPointsToTheMenu();
  void buttonStandsInForTheExtendedOne_data();
  void buttonStandsInForTheExtendedOne();
  void nothingStandsInForNothing();
  void licenseDoesNotEndTheExtendMode();
};

void ToolButtonNestTest::arrowPointsToTheMenu_data() {
  QTest::addColumn<int>("direction");
  QTest::addColumn<bool>("open");
  QTest::addColumn<Qt::LayoutDirection>("layout");
  QTest::addColumn<QPolygon>("corners");
  const QPolygon left{QPoint(-3, -2), QPoint(-3, -7), QPoint(-6, -4)};
  const QPolygon up{QPoint(-8, -2), QPoint(-3, -2), QPoint(-5, -5)};
  const QPolygon right{QPoint(-6, -2), QPoint(-6, -7), QPoint(-3, -4)};
  const QPolygon down{QPoint(-8, -5), QPoint(-3, -5), QPoint(-5, -2)};
  const QList<QPolygon> closed{left, up, right, down, down};
  const QList<QPolygon> open{right, down, left, up, down};
  for (int i = 0; i < 5; ++i) {
    QTest::addRow("%d", i) << i << false << Qt::LeftToRight << closed[i];
    QTest::addRow("%d, open", i) << i << true << Qt::LeftToRight << open[i];
  }
  QTest::addRow("left, mirrored") << 0 << false << Qt::RightToLeft << left.translated(-40 + 9, 0);
  QTest::addRow("down, mirrored") << 3 << false << Qt::RightToLeft << down.translated(-40 + 11, 0);
}

void ToolButtonNestTest::arrowPointsToTheMenu() {
  QFETCH(int, direction);
  QFETCH(bool, open);
  QFETCH(Qt::LayoutDirection, layout);
  QFETCH(QPolygon, corners);
  const QPainterPath path = toolButtonArrow(QRect(100, 0, 41, 30), EDirection(direction), open, layout);
  QPolygonF expected = QPolygonF(corners.translated(140, 29));
  expected << expected.constFirst();
  QCOMPARE(path.toSubpathPolygons(), QList<QPolygonF>{expected});
}

void ToolButtonNestTest::buttonStandsInForTheExtendedOne_data() { addRows(extendEnds); }

void ToolButtonNestTest::buttonStandsInForTheExtendedOne() {
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

void ToolButtonNestTest::nothingStandsInForNothing() {
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

void ToolButtonNestTest::licenseDoesNotEndTheExtendMode() {
  auto& service = Vela::License::LicenseService::Instance();
  MenuStage stage;
  stage.command->setIsPaidFeature(true);
  service.setProvider(std::make_unique<NoLicense>());
  QVERIFY(stage.button->IsLocked());
  stage.menuButton->SetExtendMode(true);
  stage.click(stage.menuButton);
  stage.click(stage.subButton);
  service.setProvider(nullptr); // there is one
  QVERIFY(stage.button->IsLocked() && stage.plain->IsLocked());
  stage.click(stage.menuButton);
  QVERIFY(!stage.button->IsLocked() && !stage.plain->IsLocked());
}

VELA_TEST_MAIN(ToolButtonNestTest)
#include "tool_button_nest_test.moc"
