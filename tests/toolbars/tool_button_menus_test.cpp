// SPDX-License-Identifier: MIT
#include "tool_button_fixture.h"

#include <support/screen_record.h>
#include <ui_base/popups/m_dialog_base.h>

using namespace Vela::UiBase;

namespace {

const Way<MenuStage> menuEnds[] = {
    {"click", [](MenuStage& stage) { stage.click(stage.menuButton); }},
    {"sub click", [](MenuStage& stage) { stage.click(stage.subPlain); }},
    {"outside", [](MenuStage& stage) { stage.click(stage.field); }},
    {"escape", [](MenuStage& stage) { stage.menuButton->setFocus(), stage.key(Qt::Key_Escape); }},
    {"hide", [](MenuStage& stage) { stage.subBar->hide(); }},
    {"bar", [](MenuStage& stage) { stage.bar->HideMe(false); }},
};

const Way<MenuStage> flyoutEnds[] = {
    {"click", [](MenuStage& stage) { stage.click(stage.button); }},
    {"Close", [](MenuStage& stage) { stage.clickIn(stage.flyout, "Close"); }},
    {"Cancel", [](MenuStage& stage) { stage.clickIn(stage.flyout, "Cancel"); }},
    {"escape", [](MenuStage& stage) { stage.key(Qt::Key_Escape); }},
    {"outside", [](MenuStage& stage) { stage.click(stage.field); }},
    {"plain click", [](MenuStage& stage) { stage.click(stage.plain); }},
    {"exit", [](MenuStage& stage) { stage.command->onExitCommand(); }},
    {"finalize", [](MenuStage& stage) { stage.command->onFinalize(); }},
    {"hide menu", [](MenuStage& stage) { stage.button->HideMenu(); }},
};

} // namespace

class ToolButtonMenusTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void menuIsAnnouncedOnceHoweverItCloses_data() { addRows(menuEnds); }
  void menuIsAnnouncedOnceHoweverItCloses() {
    QFETCH(int, way);
    MenuStage stage;
    QSignalSpy fromBar(stage.bar, &ToolBar::ButtonMenuVisibilityChange);
    for (int round = 0; round < 2; ++round) {
      stage.bar->ShowMe();
      stage.click(stage.menuButton);
      QVERIFY(stage.menuButton->IsMenuShowing() && stage.menuButton->isChecked());
      QVERIFY(!stage.menuButton->GetTooltipObject()->IsTooltipEnabled());
      stage.menuButton->ShowMenu(); // places it anew
      QCOMPARE(fromBar.count(), 1);
      QVERIFY(fromBar.takeFirst().at(1).toBool());
      menuEnds[way].go(stage);
      QVERIFY(!stage.subBar->isVisible() && !stage.menuButton->isChecked());
      QVERIFY(stage.menuButton->GetTooltipObject()->IsTooltipEnabled());
      stage.menuButton->HideMenu();
      QCOMPARE(fromBar.count(), 1);
      QVERIFY(!fromBar.takeFirst().at(1).toBool());
    }
  }

  void flyoutAndCommandOpenAndCloseTogether_data() {
    QTest::addColumn<bool>("checkable");
    QTest::addColumn<bool>("shortcut");
    QTest::addColumn<int>("way");
    for (const bool checkable : {false, true}) {
      for (const bool shortcut : {false, true}) {
        for (int i = 0; i < int(std::size(flyoutEnds)); ++i)
          QTest::addRow("%d%d, %s", checkable, shortcut, flyoutEnds[i].name) << checkable << shortcut << i;
      }
    }
  }
  void flyoutAndCommandOpenAndCloseTogether() {
    QFETCH(bool, checkable);
    QFETCH(bool, shortcut);
    QFETCH(int, way);
    MenuStage stage(checkable);
    QSignalSpy visibility(stage.button, &ToolButtonWithMenu::ButtonMenuVisibilityChange);
    QSignalSpy closed(stage.flyout, &FlyoutBase::CloseFlyout);
    for (int round = 1; round <= 2; ++round) {
      shortcut ? stage.command->trigger() : stage.click(stage.button);
      Vela::Test::settle();
      QVERIFY(stage.flyout->isVisible() && stage.command->isActive());
      QCOMPARE(stage.button->isChecked(), checkable);
      QCOMPARE(stage.bar->GetActiveButton(), stage.button.data());
      QCOMPARE(visibility.count(), 1);
      flyoutEnds[way].go(stage);
      Vela::Test::settle();
      QVERIFY(!stage.flyout->isVisible() && !stage.button->GetArrowedWindow()->isVisible());
      QVERIFY(!stage.command->isActive() && !stage.button->isChecked() && !stage.command->isChecked());
      QVERIFY(!stage.bar->GetActiveButton());
      QCOMPARE(stage.observer->began, round);
      QCOMPARE(stage.observer->ended, round);
      QCOMPARE(closed.count(), round);
      QCOMPARE(visibility.count(), 2);
      visibility.clear();
      QVERIFY(stage.field->hasFocus());
    }
  }

  void menuFollowsItsButton() {
    MenuStage stage;
    stage.menuButton->SetMenuParameters(Bottom, 7, AlignStart);
    stage.click(stage.menuButton);
    const auto gap = [&] {
      return stage.subBar->mapToGlobal(QPoint()) -
             stage.menuButton->mapToGlobal(QPoint(0, stage.menuButton->height()));
    };
    const QPoint distance = gap();
    QVERIFY(distance.x() == 0 && qAbs(distance.y() - 7) <= 1);
    VELA_COMPARE_SCREEN("menu_of_a_button", Vela::Test::AlsoDark);
    stage.menuButton->move(stage.menuButton->pos() + QPoint(25, 3));
    QCOMPARE(gap(), distance);
    stage.menuButton->HideMenu();
    QWidget other;
    other.resize(500, 400);
    stage.bar->setParent(&other);
    other.show();
    stage.bar->ShowMe();
    stage.menuButton->ShowMenu();
    QVERIFY(stage.subBar->isVisible() && stage.subBar->window() == &other);
    stage.button->SetMenuParameters(true, {}, Bottom, 60, AlignStart);
    stage.button->ShowMenu();
    QVERIFY(stage.flyout->mapTo(&other, QPoint()).y() > stage.button->mapTo(&other, QPoint()).y() + 60);
    stage.bar->setParent(stage.view);
    new EndsAnother(stage.subBar, QEvent::ParentChange, stage.menuButton);
    stage.menuButton->ShowMenu();
    QVERIFY(!stage.menuButton && !stage.subBar->isVisible());
  }

  void replacedFlyoutGoesHome() {
    MenuStage stage;
    stage.click(stage.button);
    auto* const next = new FlyoutBase("Next", nullptr, AllPanelButtons, stage.view);
    stage.button->SetMenu(next);
    QVERIFY(!stage.command->isActive() && !stage.flyout->isVisible());
    QCOMPARE(stage.flyout->parentWidget(), stage.view);
    QVERIFY(!stage.flyout->ToolButton());
    QCOMPARE(next->ToolButton(), stage.button);
    stage.button->ShowMenu();
    Q_EMIT stage.flyout->CloseFlyout();
    Q_EMIT stage.flyout->CancelChanges();
    QVERIFY2(next->isVisible(), "it is not heard any more");
    stage.button->SetMenu(stage.flyout);
    stage.command->trigger();
    stage.button->SetMenu(next);
    Vela::Test::settle();
    QVERIFY2(!stage.command->isActive(), "the click that was to open it opens another one");
  }

  void actionOfAPanelClosesIt() {
    MenuStage stage;
    auto* const panel = new QWidget(stage.view);
    auto* const done = new QAction("Done", panel);
    panel->addAction(done);
    stage.button->SetMenu(panel);
    stage.button->SetNoHideMenuOnClick(true); // which is about other buttons
    stage.button->ShowMenu();
    QVERIFY(panel->isVisible());
    done->trigger();
    QVERIFY(!panel->isVisible() && !stage.button->IsMenuShowing());
  }

  void buttonComesIntoSightWithItsMenu() {
    MenuStage stage;
    for (int i = 0; i < 40; ++i)
      stage.bar->AddAction(new QAction("more", stage.view), QString(), 0);
    Vela::Test::settle();
    QVERIFY(stage.button->visibleRegion().isEmpty());
    stage.command->trigger();
    Vela::Test::settle();
    QVERIFY(stage.flyout->isVisible() && !stage.button->visibleRegion().isEmpty());
    const ArrowedWindow& window = *stage.button->GetArrowedWindow();
    const QPoint tip = window.mapToGlobal(window.GetArrowPoint());
    stage.button->setFocus();
    stage.key(Qt::Key_Right); // scrolls
    Vela::Test::settle();
    QVERIFY(window.isVisible() && window.mapToGlobal(window.GetArrowPoint()).x() < tip.x());
  }

  void assistiveTechnologyHearsOfTheMenu() {
    MenuStage stage;
    QAccessibleInterface* const button = QAccessible::queryAccessibleInterface(stage.menuButton);
    QCOMPARE(button->role(), QAccessible::ButtonMenu);
    QVERIFY(button->state().hasPopup && button->state().collapsed && !button->state().expanded);
    button->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    QVERIFY(stage.menuButton->IsMenuShowing() && button->state().expanded && button->state().checked);
    stage.menuButton->setText("Cut && &Paste");
    QCOMPARE(button->text(QAccessible::Name), QString("Cut & Paste"));
    QCOMPARE(QAccessible::queryAccessibleInterface(stage.subBar)->text(QAccessible::Name),
             QString("Cut & Paste"));
  }

  void assistiveTechnologyHearsWhatAButtonIs() {
    MenuStage stage;
    stage.plain->Action()->setShortcut(Qt::CTRL | Qt::Key_K);
    stage.plain->Action()->setToolTip("Plain");
    const QAccessibleInterface* const button = QAccessible::queryAccessibleInterface(stage.plain);
    QCOMPARE(button->text(QAccessible::Accelerator), QString("Ctrl+K"));
    QVERIFY2(button->text(QAccessible::Description).isEmpty(), "its name is not said twice");
    QVERIFY(button->state().focusable && !button->state().offscreen);
    stage.plain->SetLocked(true);
    stage.plain->setToolTip("<b>Paid</b>");
    QCOMPARE(button->text(QAccessible::Description), QString("Paid"));
    QVERIFY(button->state().disabled && !button->state().focusable);
    for (int i = 0; i < 40; ++i)
      stage.bar->AddAction(new QAction("more", stage.view));
    Vela::Test::settle();
    QVERIFY(QAccessible::queryAccessibleInterface(stage.bar->Buttons().constLast())->state().offscreen);
    for (QToolButton* const each : stage.bar->findChildren<QToolButton*>()) {
      QAccessibleInterface* const list = QAccessible::queryAccessibleInterface(each);
      if (list->text(QAccessible::Name) != "More buttons")
        continue;
      QCOMPARE(list->role(), QAccessible::ButtonMenu);
      QVERIFY(list->state().collapsed);
      list->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
      QVERIFY(list->state().expanded);
      QApplication::activePopupWidget()->close();
    }
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
    const auto comeAndGo = [&] { command->trigger(), button->HideMenu(); };
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

  void commandThatCannotOpenItsFlyoutEnds() {
    MenuStage stage;
    stage.button->SetLocked(true); // as while another one is extended
    stage.command->trigger();
    QTRY_COMPARE(stage.observer->ended, 1);
    QVERIFY(!stage.flyout->isVisible() && stage.controller->contextStack().isEmpty());
    stage.button->SetLocked(false);
    stage.command->trigger();
    stage.command->onFinalize(); // before the button is told
    Vela::Test::settle();
    QVERIFY(!stage.flyout->isVisible());
  }
};

VELA_TEST_MAIN(ToolButtonMenusTest)
#include "tool_button_menus_test.moc"
