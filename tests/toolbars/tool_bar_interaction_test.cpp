// SPDX-License-Identifier: MIT
#include "toolbars_fixture.h"

#include <support/input.h>
#include <support/screen_record.h>
#include <ui_base/menus/menu_builder.h>
#include <ui_base/popups/flyout_base.h>
#include <ui_base/toolbars/tool_bar.h>
#include <ui_base/toolbars/tool_button_with_button_menu.h>
#include <ui_base/toolbars/tool_button_with_widget_menu.h>

using namespace Vela::UiBase;
using Vela::Test::click;
using Vela::Test::settle;

namespace {

/// A window with a field that has the focus, and a toolbar: two plain buttons, one with a sub-toolbar of two,
/// in which there is another one, and one with a flyout.
struct Screen {
  Screen() {
    window.resize(700, 500);
    field->move(10, 400);
    commands->addCommand(outer, 5);
    outer->setIcon(coloredIcon(Qt::red));
    inner->setIcon(coloredIcon(Qt::red));
    outer->addCommand(inner, 5);
    bar->AddCommandGroup(commands.get());
    flyoutButton = bar->AddAction(flyoutAction, flyout, QStringLiteral("flyouts"));
    Vela::Test::showActive(window);
    field->setFocus();
    settle();
  }

  ToolButton* button(const QString& id) const { return bar->FindOneButton(id, true); }
  ToolButtonWithMenu* opener(const CommandGroup& group) const {
    return qobject_cast<ToolButtonWithMenu*>(button(group.commandId()));
  }
  void press(int key, Qt::KeyboardModifiers modifiers = {}) {
    QTest::keyClick(window.windowHandle(), static_cast<Qt::Key>(key), modifiers);
  }

  QWidget window;
  QLineEdit* const field = new QLineEdit(&window);
  std::shared_ptr<CommandGroup> commands = namedGroup("a", 2);
  std::shared_ptr<CommandGroup> outer = namedGroup("outer", 2);
  std::shared_ptr<CommandGroup> inner = namedGroup("inner", 2);
  QAction* const flyoutAction = new QAction(coloredIcon(Qt::red), QStringLiteral("flyout"), &window);
  FlyoutBase* const flyout =
      new FlyoutBase(QStringLiteral("flyout"), new QLineEdit, nullptr, true, false, true, true, &window);
  ToolBar* const bar = new ToolBar(&window, Qt::TopToolBarArea);
  ToolButtonWithWidgetMenu* flyoutButton = nullptr;
};

QString focused() {
  const QWidget* const focus = QApplication::focusWidget();
  const auto* const button = qobject_cast<const ToolButton*>(focus);
  if (!button)
    return focus ? QString::fromLatin1(focus->metaObject()->className()) : QString();
  return button->property(CMDID_PROP).toString().remove(CommandGroup::className());
}

} // namespace

class ToolBarInteractionTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void clicksOpenOneMenuAtATimeAndCloseTheOthers() {
    Screen screen;
    ToolButtonWithMenu* const outer = screen.opener(*screen.outer);
    ToolButtonWithMenu* const inner = screen.opener(*screen.inner);
    QSignalSpy clicks(screen.bar, &ToolBar::ToolButtonClicked);
    click(*outer);
    QVERIFY(outer->IsMenuShowing());
    click(*inner);
    QVERIFY2(outer->IsMenuShowing() && inner->IsMenuShowing(), "a nested toolbar leaves the outer one");
    click(*screen.flyoutButton);
    QVERIFY(!outer->IsMenuShowing() && !inner->IsMenuShowing() && screen.flyoutButton->IsMenuShowing());
    QCOMPARE(screen.bar->GetActiveButton(), screen.flyoutButton);
    click(*screen.button(QStringLiteral("a 0")));
    QVERIFY(!screen.flyoutButton->IsMenuShowing() && !screen.bar->GetActiveButton());
    QCOMPARE(clicks.count(), 3);
    click(*outer);
    click(*outer);
    QVERIFY(!outer->IsMenuShowing());
  }

  void whoHearsOfAClickMayChangeGroupsOrEndTheBar() {
    for (const bool ends : {false, true}) {
      Screen screen;
      QAction* const second = screen.button(QStringLiteral("a 1"))->Action();
      for (const char* const id : {"a 0", "a 1"})
        screen.bar->AddExclusiveGroupButton(QStringLiteral("x"), screen.button(QString::fromLatin1(id)));
      QAction* const first = screen.button(QStringLiteral("a 0"))->Action();
      for (QAction* const action : {first, second})
        action->setCheckable(true);
      second->setChecked(true);
      const QPointer<ToolBar> bar(screen.bar);
      connect(second, &QAction::toggled, &screen.window, [&bar, ends] {
        for (int i = 0; i < 100; ++i)
          bar->AddExclusiveGroupButton(QString::number(i), nullptr);
        if (ends)
          delete bar;
      });
      click(*screen.button(QStringLiteral("a 0")));
      QCOMPARE(bar.isNull(), ends);
      QVERIFY(first->isChecked() && (ends || !second->isChecked()));
    }
  }

  void whoHearsOfARemovalMayEndOtherButtons() {
    Screen screen;
    const auto command = namedCommand(QStringLiteral("late"));
    auto* const menu = qobject_cast<ToolBar*>(screen.opener(*screen.outer)->GetMenu());
    auto* const panel = new QWidget(&screen.window);
    ToolButtonWithMenu* const opener = menu->AddAction(command.get(), panel);
    ToolBar empty(&screen.window, Qt::LeftToolBarArea);
    const QPointer<QToolButton> last =
        screen.bar->AddAction(nullptr, coloredIcon(Qt::red), &empty, true, "last");
    const QPointer<ToolButton> twin = menu->AddAction(command.get());
    opener->ShowMenu();
    connect(opener, &ToolButtonWithMenu::ButtonMenuVisibilityChange, &screen.window, [&] {
      delete last;
      delete twin;
    });
    screen.bar->RemoveCommand(command.get());
    QVERIFY(!last && !twin && panel->isHidden());
    QVERIFY(!screen.button(QStringLiteral("late")));
  }

  void f6LeadsToBarsOfAllKinds() {
    Screen screen;
    QWidget footer(&screen.window);
    QPushButton covered(&footer);
    covered.setEnabled(false);
    QPushButton next(QStringLiteral("next"), &footer);
    ToolBar::AddToFocusCycle(&footer);
    ToolBar::AddToFocusCycle(nullptr);
    footer.show();
    MenuBuilder menus(QStringLiteral("menus"), nullptr, &screen.window);
    menus.AddMenuBarItem(QStringLiteral("file"), QIcon(), QStringLiteral("&File"));
    menus.Start();
    const QList<const QWidget*> stops{screen.button(QStringLiteral("a 0")), &next,
                                      menus.GetMenuBarItem(QStringLiteral("file")).data(), screen.field};
    for (const QWidget* const stop : stops) {
      screen.press(Qt::Key_F6);
      QCOMPARE(QApplication::focusWidget(), stop);
    }
    screen.press(Qt::Key_F10);
    screen.press(Qt::Key_F6);
    QVERIFY(screen.field->hasFocus() && menus.CanHide());
    screen.press(Qt::Key_F6, Qt::ShiftModifier);
    QVERIFY(stops[2]->hasFocus());
    screen.press(Qt::Key_Escape);
    QVERIFY(screen.field->hasFocus());
  }

  void worksByKeyboardAlone() {
    Screen screen;
    ToolBar side(&screen.window, Qt::LeftToolBarArea);
    side.AddAction(new QAction(QStringLiteral("side"), &side))->setProperty(CMDID_PROP, "side");
    side.ShowMe();
    side.move(0, 200);
    auto* const first = dynamic_cast<NamedCommand*>(screen.commands->commandBag().commandAt(0));
    screen.press(Qt::Key_F6);
    QCOMPARE(focused(), QStringLiteral("a 0"));
    screen.press(Qt::Key_F6);
    QCOMPARE(focused(), QStringLiteral("side"));
    screen.press(Qt::Key_F6);
    QCOMPARE(QApplication::focusWidget(), screen.field);
    screen.press(Qt::Key_F6, Qt::ShiftModifier);
    QCOMPARE(focused(), QStringLiteral("side"));
    screen.press(Qt::Key_F6, Qt::ShiftModifier);
    screen.press(Qt::Key_Return);
    screen.press(Qt::Key_Space);
    QCOMPARE(first->runs, 2);
    screen.commands->commandBag().commandAt(1)->setEnabled(false);
    screen.press(Qt::Key_Right);
    QCOMPARE(focused(), QStringLiteral("outer"));

    // Into the menus and out of them again.
    screen.press(Qt::Key_Down);
    QCOMPARE(focused(), QStringLiteral("outer 0"));
    screen.press(Qt::Key_End);
    QCOMPARE(focused(), QStringLiteral("inner"));
    screen.press(Qt::Key_Right);
    QCOMPARE(focused(), QStringLiteral("inner 0"));
    VELA_COMPARE_SCREEN("focus_in_a_nest", Vela::Test::AlsoDark);
    screen.press(Qt::Key_Escape);
    QCOMPARE(focused(), QStringLiteral("inner"));
    screen.press(Qt::Key_Escape);
    QCOMPARE(focused(), QStringLiteral("outer"));
    screen.press(Qt::Key_Escape);
    QCOMPARE(QApplication::focusWidget(), screen.field);
  }

  void arrowKeysGoByWhatIsSeen_data() {
    QTest::addColumn<Qt::LayoutDirection>("direction");
    QTest::addColumn<QList<int>>("keys");
    QTest::addColumn<int>("reached");
    QTest::newRow("right and down") << Qt::LeftToRight << QList<int>{Qt::Key_Right, Qt::Key_Down} << 4;
    QTest::newRow("left in right to left") << Qt::RightToLeft << QList<int>{Qt::Key_Left, Qt::Key_Down} << 4;
    QTest::newRow("end and up") << Qt::LeftToRight << QList<int>{Qt::Key_End, Qt::Key_Up} << 2;
  }
  void arrowKeysGoByWhatIsSeen() {
    QFETCH(Qt::LayoutDirection, direction);
    QFETCH(QList<int>, keys);
    QFETCH(int, reached);
    Screen screen;
    screen.window.setLayoutDirection(direction);
    ToolBar grid(&screen.window, Qt::LeftToolBarArea);
    grid.SetGridLayout(3);
    const auto commands = namedGroup("g", 6);
    grid.AddCommandGroup(commands.get());
    grid.ShowMe();
    grid.move(0, 150);
    settle();
    screen.bar->HideMe(false);
    screen.press(Qt::Key_F6);
    for (const int key : keys)
      screen.press(key);
    QCOMPARE(focused(), QStringLiteral("g %1").arg(reached));
  }

  void buttonsWithoutRoomStayWithinReach() {
    QWidget window;
    window.setLayoutDirection(Qt::RightToLeft);
    window.resize(200, 200);
    ToolBar bar(&window, Qt::TopToolBarArea);
    const auto commands = namedGroup("c", 12);
    bar.AddCommandGroup(commands.get());
    Vela::Test::showActive(window);
    settle();
    QVERIFY(window.rect().contains(bar.geometry()));
    const auto buttons = bar.Buttons();
    const auto shows = [](const QWidget* widget) {
      return widget->visibleRegion() == QRegion(widget->rect());
    };
    QVERIFY(shows(buttons[0]) && buttons[11]->visibleRegion().isEmpty());
    for (const ToolButton* const button : buttons)
      QVERIFY2(shows(button) || button->visibleRegion().isEmpty(), "no button is cut");

    QToolButton* more = nullptr;
    const auto all = bar.findChildren<QToolButton*>();
    for (QToolButton* const each : all)
      more = qobject_cast<ToolButton*>(each) ? more : each;
    QVERIFY(more && shows(more));
    click(*more);
    auto* const list = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    QVERIFY(list);
    list->setActiveAction(list->actions().constLast());
    QTest::keyClick(list, Qt::Key_Return);
    auto* const last = dynamic_cast<NamedCommand*>(commands->commandBag().commandAt(11));
    QTRY_COMPARE(last->runs, 1);
    QVERIFY(shows(buttons[11]) && !shows(buttons[0]));
    VELA_COMPARE_SCREEN("scrolled_bar", Vela::Test::OnlyAsItIs);
    QTest::keyClick(window.windowHandle(), Qt::Key_F6);
    QVERIFY(buttons[0]->hasFocus() && shows(buttons[0]));
    window.resize(700, 700);
    QTRY_VERIFY(more->isHidden() && shows(buttons[11]));
  }
};

VELA_TEST_MAIN(ToolBarInteractionTest)
#include "tool_bar_interaction_test.moc"
