// SPDX-License-Identifier: MIT
#include "tool_button_fixture.h"

#include <support/screen_record.h>
#include <ui_base/popups/m_dialog_base.h>

using namespace Vela::UiBase;

class ToolButtonMenusTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void menuIsAnnouncedOnceHoweverItCloses_data() {
    const Vela::Test::Rows<StageAct> row("close");
    row("click", [](MenuStage& stage) { stage.click(stage.menuButton); });
    row("sub click", [](MenuStage& stage) { stage.click(stage.subPlain); });
    row("outside", [](MenuStage& stage) { stage.click(stage.field); });
    row("escape", [](MenuStage& stage) {
      stage.menuButton->setFocus();
      stage.key(Qt::Key_Escape);
    });
    row("hide", [](MenuStage& stage) { stage.subBar->hide(); });
    row("bar", [](MenuStage& stage) { stage.bar->HideMe(false); });
  }
  void menuIsAnnouncedOnceHoweverItCloses() {
    QFETCH(StageAct, close);
    MenuStage stage;
    QSignalSpy fromBar(stage.bar, &ToolBar::ButtonMenuVisibilityChange);
    for (int round = 0; round < 2; ++round) {
      stage.bar->ShowMe();
      stage.click(stage.menuButton);
      QVERIFY(!stage.menuButton->GetTooltipObject()->IsTooltipEnabled());
      stage.menuButton->ShowMenu(); // places it anew
      QCOMPARE(fromBar.count(), 1);
      QVERIFY(fromBar.takeFirst().at(1).toBool());
      close(stage);
      QVERIFY(stage.menuButton->GetTooltipObject()->IsTooltipEnabled());
      stage.menuButton->HideMenu();
      QCOMPARE(fromBar.count(), 1);
      QVERIFY(!fromBar.takeFirst().at(1).toBool());
    }
  }

  void flyoutAndCommandOpenAndCloseTogether_data() {
    const Vela::Test::Rows<bool, bool, StageAct> rows("checkable", "shortcut", "close");
    const auto row = [&rows](const char* name, const StageAct& close) {
      for (const char* const kind : {"00", "01", "10", "11"})
        rows(QByteArray(kind) + ", " + name, kind[0] == '1', kind[1] == '1', close);
    };
    row("click", [](MenuStage& stage) { stage.click(stage.button); });
    row("Close", [](MenuStage& stage) { stage.clickIn(stage.flyout, "Close"); });
    row("Cancel", [](MenuStage& stage) { stage.clickIn(stage.flyout, "Cancel"); });
    row("escape", [](MenuStage& stage) { stage.key(Qt::Key_Escape); });
    row("outside", [](MenuStage& stage) { stage.click(stage.field); });
    row("plain click", [](MenuStage& stage) { stage.click(stage.plain); });
    row("exit", [](MenuStage& stage) { stage.command->onExitCommand(); });
    row("finalize", [](MenuStage& stage) { stage.command->onFinalize(); });
    row("hide menu", [](MenuStage& stage) { stage.button->HideMenu(); });
  }
  void flyoutAndCommandOpenAndCloseTogether() {
    QFETCH(bool, checkable);
    QFETCH(bool, shortcut);
    QFETCH(StageAct, close);
    MenuStage stage(checkable);
    QSignalSpy visibility(stage.button, &ToolButtonWithMenu::ButtonMenuVisibilityChange);
    QSignalSpy closed(stage.flyout, &FlyoutBase::CloseFlyout);
    for (int round = 1; round <= 2; ++round) {
      shortcut ? stage.command->trigger() : stage.click(stage.button);
      Vela::Test::settle();
      QCOMPARE(visibility.count(), 1);
      close(stage);
      Vela::Test::settle();
      QVERIFY(!stage.command->isActive() && !stage.command->isChecked() && !stage.bar->GetActiveButton());
      QCOMPARE(stage.observer->began, round);
      QCOMPARE(stage.observer->ended, round);
      QCOMPARE(closed.count(), round);
      QCOMPARE(visibility.count(), 2);
      visibility.clear();
    }
  }

  void menuFollowsItsButton() {
    MenuStage stage;
    stage.menuButton->SetMenuParameters(Bottom, 7, AlignStart);
    stage.click(stage.menuButton);
    VELA_COMPARE_SCREEN("menu_of_a_button", Vela::Test::AlsoDark);
    stage.menuButton->move(stage.menuButton->pos() + QPoint(25, 3));
    Vela::Test::settle();
    stage.menuButton->HideMenu();
    QWidget other;
    other.resize(500, 400);
    stage.bar->setParent(&other);
    other.show();
    stage.bar->ShowMe();
    stage.menuButton->ShowMenu();
    Vela::Test::settle();
    stage.button->SetMenuParameters(true, {}, Bottom, 60, AlignStart);
    stage.button->ShowMenu();
    Vela::Test::settle();
    stage.bar->setParent(stage.view);
    new EndsAnother(stage.subBar, QEvent::ParentChange, stage.menuButton);
    stage.menuButton->ShowMenu();
    QVERIFY(!stage.menuButton && !stage.subBar->isVisible());
  }

  void assistiveTechnologyHearsWhatAButtonIs() {
    MenuStage stage;
    stage.plain->Action()->setShortcut(Qt::CTRL | Qt::Key_K);
    stage.plain->Action()->setToolTip("Plain");
    const QAccessibleInterface* const button = QAccessible::queryAccessibleInterface(stage.plain);
    QCOMPARE(button->text(QAccessible::Accelerator), QString("Ctrl+K"));
    QVERIFY(!button->state().offscreen);
    Vela::Test::settle(); // its name is not said twice
    stage.plain->SetLocked(true);
    stage.plain->setToolTip("<b>Paid</b>");
    for (int i = 0; i < 40; ++i)
      stage.bar->AddAction(new QAction("more", stage.view));
    Vela::Test::settle();
    QVERIFY(QAccessible::queryAccessibleInterface(stage.bar->Buttons().constLast())->state().offscreen);
    auto* const more = stage.bar->findChild<QToolButton*>(QString(), Qt::FindDirectChildrenOnly);
    QAccessibleInterface* const list = QAccessible::queryAccessibleInterface(more);
    QVERIFY(list->state().collapsed);
    list->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    QVERIFY(list->state().expanded);
    QApplication::activePopupWidget()->close();
    stage.click(stage.button);
    stage.flyout->SetBusy(true);
    const QAccessibleInterface* const flyout = QAccessible::queryAccessibleInterface(stage.flyout);
    QVERIFY(flyout->role() == QAccessible::Dialog && flyout->state().busy);
    MDialogBase dialog;
    auto* const content = new FlyoutBase("Content", nullptr, ApplyButton);
    dialog.SetContent(content);
    QCOMPARE(QAccessible::queryAccessibleInterface(content)->role(), QAccessible::Grouping);
    const QWidget* const tooltip = stage.plain->GetTooltipObject()->TooltipControl();
    QCOMPARE(QAccessible::queryAccessibleInterface(const_cast<QWidget*>(tooltip))->role(),
             QAccessible::ToolTip);
  }

  void commandEndsWithTheButtonThatWasToOpenItAgain() {
    MenuStage stage;
    auto* const panel = new QSpinBox(stage.view);
    panel->hide();
    const auto command = Taren::Objects::createShared<PanelCommand>(panel, stage.controller);
    const QPointer<ToolButtonWithWidgetMenu> button = stage.bar->AddAction(command.get(), panel);
    stage.bar->AddAction(command.get(), panel); // lives on, and was not asked
    command->trigger();
    QVERIFY(button->IsMenuShowing());
    const auto comeAndGo = [&] {
      command->trigger();
      button->HideMenu();
    };
    connect(button, &ToolButtonWithMenu::ButtonMenuVisibilityChange, command.get(), comeAndGo,
            Qt::SingleShotConnection);
    button->HideMenu();
    Vela::Test::settle();
    QVERIFY(!command->isActive() && !panel->isVisible());
    command->trigger();
    const auto again = [&command](ToolButton*, bool visible) { visible ? void() : command->trigger(); };
    connect(button, &ToolButtonWithMenu::ButtonMenuVisibilityChange, command.get(), again,
            Qt::SingleShotConnection);
    button->HideMenu();
    button->hide();
    QVERIFY(command->isActive());
    delete button;
    QVERIFY(!command->isActive());
  }
};

VELA_TEST_MAIN(ToolButtonMenusTest)
#include "tool_button_menus_test.moc"
