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
  void hasItsLooks() {
    QWidget window;
    ActionPanel panel(&window);
    QCOMPARE(panel.objectName(), QStringLiteral("action panel"));
    ToolBarParams looks = panel.Params();
    const SArrowParam tooltipArrow{ArrowLeft, 10, false, 0, 90, true, 0, {}};
    const SArrowParam menuArrow{ArrowTopLeft, 15, true, 180, 90, false, 20, {}};
    QVERIFY(looks.tooltip.arrow == tooltipArrow && looks.tooltip.direction == Right);
    QVERIFY(looks.tooltip.distance == 5 && looks.tooltip.alignment == AlignCenter);
    QVERIFY(looks.menu.arrow == menuArrow && looks.menu.direction == Right && !looks.menu.autoDecide);
    QVERIFY(looks.menu.distance == 7 && looks.menu.alignment == AlignCenter);
    QVERIFY(!looks.shadow && looks.autoPosition && looks.centered && looks.borderAroundGroups);
    QCOMPARE(looks.offset, QPoint(5, 0));
    QCOMPARE(looks.groupMargins, QMargins(2, 2, 2, 2));
    QVERIFY(looks.barCorners == 2 && looks.groupCorners == 2 && looks.cornerRadius == 4);
    QCOMPARE(looks.iconSize, QSize(32, 32));
    QCOMPARE(looks.buttonSize, QSize(50, 50));
    QVERIFY(looks.buttonSpacing == 1 && looks.groupSpacing == 10 && looks.borderWidth == 1);
    QCOMPARE(looks.backColor, QColor(Qt::transparent));
    const auto colors = [&panel] { return std::pair(panel.GroupBackColor(), panel.BorderColor()); };
    const auto shared = [] {
      return std::pair(Styles::Instance().ColorActionPanelGroupBack(),
                       Styles::Instance().ColorActionPanelBorder());
    };
    QVERIFY(colors() == shared());
    const auto before = Styles::Instance().palette();
    ToolBar menu(&window, Qt::TopToolBarArea);
    menu.CopyAllParametersFrom(&panel);
    panel.AddAction(nullptr, QIcon(), &menu, true, "menu");
    ActionPanel colored(&window);
    colored.SetGroupBackColor(Qt::red);
    Styles::Instance().setPalette(before == Vela::Resource::Dark ? Vela::Resource::Light
                                                                 : Vela::Resource::Dark);
    QVERIFY2(colors() == shared(), "they follow the palette");
    QCOMPARE(menu.GroupBackColor(), panel.GroupBackColor());
    QCOMPARE(menu.BorderColor(), panel.BorderColor());
    QCOMPARE(colored.GroupBackColor(), QColor(Qt::red));
    Styles::Instance().setPalette(before);
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
    stage.outer->SetBusy(false);
    QCOMPARE(enabledButtons(), 3 + 3 - 1);
    stage.inner->SetBusy(true);
    QCOMPARE(enabledButtons(), 0);
    stage.group->addCommand(namedCommand(QStringLiteral("late")), 9);
    Vela::Test::settle();
    QVERIFY(stage.panel->FindOneButton("late", false) && enabledButtons() == 0);
    delete stage.inner; // and never idle
    QVERIFY(stage.plainButton()->isEnabled());
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

  void partsMayDieInAnyOrder_data() {
    QTest::addColumn<QString>("first");
    for (const char* first : {"flyout", "inner flyout", "commands", "panel", "menu"})
      QTest::newRow(first) << first;
  }
  void partsMayDieInAnyOrder() {
    QFETCH(QString, first);
    Stage stage;
    stage.click(stage.menuButton());
    stage.click(stage.menuButton()->GetMenu()->Buttons().at(2));
    QVERIFY(stage.inner->isVisible());
    stage.inner->SetBusy(true);
    if (first == "flyout")
      delete stage.outer;
    else if (first == "inner flyout")
      delete stage.inner;
    else if (first == "commands")
      stage.group.reset();
    else if (first == "panel")
      delete stage.panel;
    else
      delete stage.menuButton()->GetMenu();
    Vela::Test::settle();
    if (stage.inner)
      stage.inner->SetBusy(false);
    if (stage.inner)
      stage.inner->CloseMe();
    Vela::Test::settle();
  }
};

VELA_TEST_MAIN(ActionPanelTest)
#include "action_panel_test.moc"
