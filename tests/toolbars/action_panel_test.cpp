// SPDX-License-Identifier: MIT
#include "toolbars_fixture.h"

#include <support/test_case.h>
#include <ui_base/commands/flyout_command.h>
#include <ui_base/popups/flyout_base.h>
#include <ui_base/toolbars/action_panel.h>
#include <ui_base/toolbars/tool_button_with_button_menu.h>
#include <ui_base/toolbars/tool_button_with_widget_menu.h>
#include <vlk_common_res/styles.h>

#include <QLabel>
#include <QPointer>
#include <QSignalSpy>
#include <QWindow>

using namespace Vela::UiBase;
using Vela::Resource::Styles;

namespace {

class PanelCommand : public FlyoutCommand {
  Q_OBJECT
  COMMAND_ID(PanelCommand)

public:
  explicit PanelCommand(FlyoutBase* flyout) : FlyoutCommand(flyout, nullptr) { setText("Smooth"); }
  bool onExecuteAsync(bool) override { return true; }
};

class OpenPanel : public ActionPanel {
public:
  using ActionPanel::ActionPanel;
  using ActionPanel::OnDismissWidgetMenu;
};

/// A window with a panel: a plain command, one with a flyout, and a group with two commands and a flyout.
struct Stage {
  Stage() {
    window.resize(700, 500);
    panel = new OpenPanel(&window);
    outer = new FlyoutBase("Outer", new QLabel("outer"), nullptr, true, true, true, true, &window);
    inner = new FlyoutBase("Inner", new QLabel("inner"), nullptr, true, true, true, true, &window);
    nested = namedGroup("nested", 2);
    nested->setIcon(QIcon(QStringLiteral(":/resources/images/sys_sample.png")));
    nested->addCommand(Taren::Objects::createShared<PanelCommand>(inner), 5);
    group = namedGroup("group", 1);
    group->addCommand(Taren::Objects::createShared<PanelCommand>(outer), 1);
    group->addCommand(nested, 2);
    panel->AddCommandGroup(group.get());
    panel->PrepareActionPanel();
    panel->ShowMe();
    window.show();
    window.activateWindow();
    if (!QTest::qWaitForWindowActive(&window))
      qFatal("the window does not become active");
  }
  void click(const QWidget* widget) {
    QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {},
                      widget->mapTo(&window, widget->rect().center()));
  }
  ToolButton* plainButton() const { return panel->FindOneButton(QStringLiteral("group 0"), false); }
  ToolButtonWithWidgetMenu* flyoutButton() const {
    return qobject_cast<ToolButtonWithWidgetMenu*>(panel->Buttons().at(1));
  }
  ToolButtonWithButtonMenu* menuButton() const {
    return qobject_cast<ToolButtonWithButtonMenu*>(panel->Buttons().at(2));
  }

  QWidget window;
  OpenPanel* panel;
  QPointer<FlyoutBase> outer;
  QPointer<FlyoutBase> inner;
  std::shared_ptr<CommandGroup> group;
  std::shared_ptr<CommandGroup> nested;
};

} // namespace

class ActionPanelTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void colorsFollowThePalette() {
    QWidget window;
    ActionPanel panel(&window);
    ToolBar menu(&window, Qt::TopToolBarArea);
    menu.CopyAllParametersFrom(&panel);
    panel.AddAction(nullptr, QIcon(), &menu, true, "menu");
    ActionPanel colored(&window);
    colored.SetGroupBackColor(Qt::red);
    Styles& styles = Styles::Instance();
    const auto before = styles.palette();
    styles.setPalette(before == Vela::Resource::Dark ? Vela::Resource::Light : Vela::Resource::Dark);
    for (const ToolBar* const each : {static_cast<ToolBar*>(&panel), &menu}) {
      QCOMPARE(each->GroupBackColor(), styles.ColorActionPanelGroupBack());
      QCOMPARE(each->BorderColor(), styles.ColorActionPanelBorder());
    }
    QCOMPARE(colored.GroupBackColor(), QColor(Qt::red));
    styles.setPalette(before);
  }

  void buttonsAreCheckableAndUnchecked() {
    Stage stage;
    QCOMPARE(stage.panel->Buttons().size(), 3);
    QVERIFY(stage.flyoutButton() && stage.menuButton() && stage.menuButton()->IsExtendModeEnabled());
    const QList<ToolButton*> buttons = stage.panel->Buttons();
    for (const ToolButton* const button : buttons)
      QVERIFY(button->isCheckable() && !button->isChecked());
    stage.click(stage.plainButton());
    QVERIFY(!stage.plainButton()->isChecked());
    QCOMPARE(dynamic_cast<NamedCommand*>(stage.group->getCommand("group 0"))->runs, 1);
    QCOMPARE(stage.menuButton()->GetMenu()->Orientation(), Qt::Horizontal);
    for (const ToolButtonWithMenu* const button : stage.panel->MenuButtons(true))
      QVERIFY(!button->NoHideMenuOnClick());
  }

  void buttonsMadeByHand() {
    QWidget window;
    ActionPanel panel(&window);
    QAction action(QIcon(QStringLiteral(":/resources/images/sys_sample.png")), "Smooth");
    QVERIFY(!ActionPanel::CreateToolButton(nullptr, &action, panel, &panel, "smooth"));
    QVERIFY(!ActionPanel::CreateToolButton(&window, &action, panel, nullptr, "smooth"));
    QVERIFY(panel.Buttons().isEmpty());
    const ToolButton* const button = ActionPanel::CreateToolButton(&window, &action, panel, &panel, "smooth");
    QVERIFY(button && button->isCheckable() && !button->isChecked());
    QCOMPARE(button->objectName(), QStringLiteral("smooth"));
    ToolBar menu(&window, Qt::TopToolBarArea);
    QVERIFY(qobject_cast<ToolButtonWithButtonMenu*>(
        ActionPanel::CreateToolButton(&window, nullptr, panel, &panel, action.icon(), &menu, "more")));
    QCOMPARE(panel.FindOneButton("more", false), panel.Buttons().at(1));
  }

  void menusOpenToTheRight() {
    Stage stage;
    stage.click(stage.menuButton());
    const ToolBar* const menu = stage.menuButton()->GetMenu();
    QVERIFY(menu->isVisible() && menu->x() > stage.panel->geometry().right());
    stage.click(stage.flyoutButton());
    QVERIFY(stage.outer->isVisible() && menu->isHidden());
    QVERIFY(stage.outer->mapTo(&stage.window, QPoint()).x() > stage.panel->geometry().right());
    QVERIFY(stage.flyoutButton()->isChecked());
    QSignalSpy cancelled(stage.outer, &FlyoutBase::CancelChanges);
    stage.panel->OnDismissWidgetMenu(nullptr, stage.flyoutButton());
    QVERIFY(!stage.outer->isVisible() && !stage.flyoutButton()->isChecked());
    QCOMPARE(cancelled.count(), 1);
    stage.panel->OnDismissWidgetMenu(nullptr, nullptr);
  }

  void busyFlyoutLocksTheButtons() {
    Stage stage;
    stage.click(stage.flyoutButton());
    stage.outer->SetBusy(true);
    const auto enabledButtons = [&stage] {
      QList<ToolButton*> buttons = stage.panel->Buttons() + stage.menuButton()->GetMenu()->Buttons();
      buttons.removeIf([](const ToolButton* button) { return !button->isEnabled(); });
      return buttons.size();
    };
    QCOMPARE(enabledButtons(), 0);
    QVERIFY(stage.panel->isEnabled());
    CommandBase* const plain = stage.group->getCommand("group 0");
    plain->setEnabled(false);
    plain->setEnabled(true);
    stage.nested->getCommand("nested 0")->setEnabled(false);
    QCOMPARE(enabledButtons(), 0);
    stage.click(stage.plainButton());
    QCOMPARE(dynamic_cast<NamedCommand*>(plain)->runs, 0);
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

  void panelsInsideOfPanelsArePanels() {
    Stage stage;
    const auto deep = namedGroup("deep", 1);
    deep->setIcon(QIcon(QStringLiteral(":/resources/images/sys_sample.png")));
    FlyoutBase flyout("Deep", new QLabel("deep"), nullptr, true, true, true, true, &stage.window);
    stage.nested->addCommand(deep, 9);
    Vela::Test::settle();
    deep->addCommand(Taren::Objects::createShared<PanelCommand>(&flyout), 1); // also what comes late
    Vela::Test::settle();
    const auto* const opener =
        qobject_cast<ToolButtonWithButtonMenu*>(stage.panel->FindOneButton(deep->commandId(), true));
    QVERIFY(opener && opener->isCheckable() && opener->IsExtendModeEnabled());
    QVERIFY(qobject_cast<ActionPanel*>(opener->GetMenu()));
    QCOMPARE(opener->GetMenu()->Orientation(), Qt::Vertical);
    QVERIFY(opener->GetMenu()->Buttons().at(1)->isCheckable());
    flyout.SetBusy(true);
    QVERIFY(!stage.plainButton()->isEnabled() && !opener->isEnabled());
    flyout.SetBusy(false);
    QVERIFY(stage.plainButton()->isEnabled() && opener->isEnabled());
  }

  void aGroupThatChangesLeavesItsFlyoutOpen() {
    Stage stage;
    ToolButtonWithButtonMenu* const opener = stage.menuButton();
    Vela::Test::settle();
    stage.click(opener);
    Vela::Test::settle();
    stage.click(opener->GetMenu()->Buttons().at(2));
    QVERIFY(opener->IsInExtendMode() && opener->isChecked() && stage.inner->isVisible());
    stage.nested->addCommand(namedCommand(QStringLiteral("late")), 0);
    stage.nested->setText(QStringLiteral("Renamed"));
    stage.group->addCommand(namedCommand(QStringLiteral("later")), 0);
    Vela::Test::settle();
    QCOMPARE(opener->GetMenu()->Buttons().size(), 4);
    QVERIFY(opener->IsInExtendMode() && opener->isChecked());
    QVERIFY(stage.inner->isVisible() && stage.plainButton()->IsLocked());
  }

  void escapeInThePanelClosesAnyMenu() {
    Stage stage;
    auto* const simple = new QLabel("simple", &stage.window);
    simple->hide();
    ToolButton* const button = stage.panel->AddAction(new QAction("simple", stage.panel), simple);
    Vela::Test::settle();
    stage.click(button);
    QVERIFY(simple->isVisible());
    button->setFocus();
    QTest::keyClick(stage.window.windowHandle(), Qt::Key_Escape);
    QVERIFY(!simple->isVisible());
  }
};

VELA_TEST_MAIN(ActionPanelTest)
#include "action_panel_test.moc"
