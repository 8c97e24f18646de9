// SPDX-License-Identifier: MIT
#include "tool_button_fixture.h"

#include <support/rows.h>
#include <support/screen_record.h>
#include <ui_base/toolbars/action_panel.h>

using namespace Vela::UiBase;

namespace {

/// A window with a panel: a plain command, one with a flyout, and a group with two commands and a flyout.
struct Stage {
  Stage() {
    window.resize(700, 500);
    panel = new ActionPanel(&window);
    outer = flyout("Outer");
    inner = flyout("Inner");
    nested = namedGroup("nested", 2);
    nested->setIcon(coloredIcon(Qt::red));
    nested->addCommand(Taren::Objects::createShared<PanelCommand>(inner, nullptr), 5);
    group = namedGroup("group", 1);
    group->addCommand(Taren::Objects::createShared<PanelCommand>(outer, nullptr), 1);
    group->addCommand(nested, 2);
    panel->AddCommandGroup(group.get());
    panel->PrepareActionPanel();
    panel->ShowMe();
    Vela::Test::showActive(window);
  }
  FlyoutBase* flyout(const QString& name) {
    return new FlyoutBase(name, new QLabel(name.toLower()), nullptr, true, true, true, true, &window);
  }
  ToolButton* plainButton() const { return panel->FindOneButton(QStringLiteral("group 0"), false); }
  ToolButtonWithWidgetMenu* flyoutButton() const {
    return qobject_cast<ToolButtonWithWidgetMenu*>(panel->Buttons().at(1));
  }
  ToolButtonWithButtonMenu* menuButton() const {
    return qobject_cast<ToolButtonWithButtonMenu*>(panel->Buttons().at(2));
  }

  QWidget window;
  ActionPanel* panel;
  QPointer<FlyoutBase> outer;
  QPointer<FlyoutBase> inner;
  std::shared_ptr<CommandGroup> group;
  std::shared_ptr<CommandGroup> nested;
};

} // namespace

class ActionPanelTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void buttonsAreUncheckedUnlessTheyShowAMenu() {
    Stage stage;
    Vela::Test::click(*stage.plainButton());
    QCOMPARE(dynamic_cast<NamedCommand*>(stage.group->getCommand("group 0"))->runs, 1);
    Vela::Test::click(*stage.menuButton());
    Vela::Test::click(*stage.flyoutButton());
    VELA_COMPARE_SCREEN("action_panel", Vela::Test::AlsoDark);
  }

  void busyFlyoutLocksTheButtons() {
    Stage stage;
    Vela::Test::click(*stage.flyoutButton());
    stage.outer->SetBusy(true);
    const auto enabledButtons = [&stage] {
      QList<ToolButton*> buttons = stage.panel->Buttons() + stage.menuButton()->GetMenu()->Buttons();
      buttons.removeIf([](const ToolButton* button) { return !button->isEnabled(); });
      return buttons.size();
    };
    QCOMPARE(enabledButtons(), 0);
    CommandBase* const plain = stage.group->getCommand("group 0");
    plain->setEnabled(false);
    plain->setEnabled(true);
    stage.nested->getCommand("nested 0")->setEnabled(false);
    QCOMPARE(enabledButtons(), 0);
    stage.inner->SetBusy(true);
    stage.outer->SetBusy(false);
    QCOMPARE(enabledButtons(), 0);
    stage.group->addCommand(namedCommand(QStringLiteral("late")), 9);
    Vela::Test::settle();
    QVERIFY(stage.panel->FindOneButton("late", false) && enabledButtons() == 0);
    stage.flyoutButton()->setEnabled(false); // by the application
    delete stage.inner;                      // and never idle
    QVERIFY(stage.plainButton()->isEnabled() && !stage.flyoutButton()->isEnabled());
    QCOMPARE(enabledButtons(), 4 + 3 - 2);
  }

  void aPanelThatDiesAtWorkLeavesTheBarsOfOthersFree() {
    Stage stage;
    ToolBar own(&stage.window, Qt::LeftToolBarArea);
    const ToolButton* const button = own.AddAction(new QAction(coloredIcon(Qt::red), "Own", &own));
    stage.menuButton()->SetMenu(&own);
    stage.outer->SetBusy(true);
    QVERIFY(!button->isEnabled());
    delete stage.panel;
    QVERIFY(button->isEnabled());
  }

  void panelsInsideOfPanelsArePanels() {
    Stage stage;
    const auto deep = namedGroup("deep", 1);
    deep->setIcon(coloredIcon(Qt::red));
    FlyoutBase& flyout = *stage.flyout("Deep");
    stage.nested->addCommand(deep, 9);
    Vela::Test::settle();
    deep->addCommand(Taren::Objects::createShared<PanelCommand>(&flyout, nullptr), 1); // also what comes late
    Vela::Test::settle();
    const auto* const opener =
        qobject_cast<ToolButtonWithButtonMenu*>(stage.panel->FindOneButton(deep->commandId(), true));
    QVERIFY(opener && opener->IsExtendModeEnabled() && qobject_cast<ActionPanel*>(opener->GetMenu()));
    flyout.SetBusy(true);
    QVERIFY(!stage.plainButton()->isEnabled() && !opener->isEnabled());
    flyout.SetBusy(false);
    QVERIFY(stage.plainButton()->isEnabled() && opener->isEnabled());
    FlyoutBase& other = *stage.flyout("At work");
    other.SetBusy(true);
    stage.flyoutButton()->SetMenu(&other);
    QVERIFY(!stage.plainButton()->isEnabled() && !opener->isEnabled());
  }

  void aGroupThatChangesLeavesItsFlyoutOpen() {
    Stage stage;
    ToolButtonWithButtonMenu* const opener = stage.menuButton();
    Vela::Test::settle();
    Vela::Test::click(*opener);
    Vela::Test::settle();
    Vela::Test::click(*opener->GetMenu()->Buttons().at(2));
    stage.nested->addCommand(namedCommand(QStringLiteral("late")), 0);
    stage.nested->setText(QStringLiteral("Renamed"));
    stage.group->addCommand(namedCommand(QStringLiteral("later")), 0);
    Vela::Test::settle();
    QCOMPARE(opener->GetMenu()->Buttons().size(), 4);
  }

  void showsWhatIsDoneToIt_data() {
    const Vela::Test::Rows<std::function<void(Stage&)>> row("deed");
    row("grid", [](Stage& stage) {
      stage.panel->SetGridLayout(2);
      const auto menu = namedGroup("menu", 2);
      menu->setIcon(coloredIcon(Qt::green));
      stage.group->addCommand(menu, 7);
      stage.group->addCommand(Taren::Objects::createShared<PanelCommand>(stage.flyout("Late"), nullptr), 8);
      Vela::Test::settle();
      for (const int opener : {2, 4})
        Vela::Test::click(*stage.panel->Buttons().at(opener));
    });
    row("locked by hand", [](Stage& stage) {
      stage.panel->OnFlyoutBusy();
      stage.group->addCommand(namedCommand(QStringLiteral("late")), 9);
      Vela::Test::settle();
      stage.panel->OnFlyoutIdle();
    });
  }
  void showsWhatIsDoneToIt() {
    QFETCH(std::function<void(Stage&)>, deed);
    Stage stage;
    deed(stage);
    Vela::Test::settle();
  }
};

VELA_TEST_MAIN(ActionPanelTest)
#include "action_panel_test.moc"
