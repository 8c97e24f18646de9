// SPDX-License-Identifier: MIT
#include "tool_bar_screen.h"

#include <support/rows.h>
#include <support/screen_record.h>
#include <ui_base/menus/menu_builder.h>
#include <ui_base/tooltips/tooltip_object.h>
#include <ui_base/tooltips/tooltip_reason.h>

#include <functional>

using namespace Vela::UiBase;
using Vela::Test::click;
using Vela::Test::settle;

class ToolBarInteractionTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void clicksOpenOneMenuAtATimeAndCloseTheOthers() {
    Screen screen;
    const ToolButton* const outer = screen.opener(*screen.outer);
    QSignalSpy clicks(screen.bar, &ToolBar::ToolButtonClicked);
    click(*outer);
    click(*screen.opener(*screen.inner)); // a nested toolbar leaves the outer one
    click(*screen.flyoutButton);
    click(*screen.button(QStringLiteral("a 0")));
    QCOMPARE(clicks.count(), 3);
    screen.bar->SetHideOnClick(true);
    for (int i = 0; i < 3; ++i)
      click(*outer);
    for (const char* const id : {"outer 0", "a 0"})
      click(*screen.button(id));
    settle();
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
    screen.press({Qt::Key_F6, Qt::Key_F6, Qt::Key_F6, Qt::Key_F6, Qt::Key_F10, Qt::Key_F6});
    QVERIFY(screen.field->hasFocus() && menus.CanHide());
    screen.press({Qt::SHIFT | Qt::Key_F6, Qt::Key_Escape});
  }

  void worksByKeyboardAlone() {
    Screen screen;
    ToolBar side(&screen.window, Qt::LeftToolBarArea);
    side.AddAction(new QAction(QStringLiteral("side"), &side));
    side.ShowMe();
    side.move(0, 200);
    auto* const first = dynamic_cast<NamedCommand*>(screen.commands->commandBag().commandAt(0));
    screen.press({Qt::Key_F6, Qt::Key_F6, Qt::Key_F6, Qt::SHIFT | Qt::Key_F6, Qt::SHIFT | Qt::Key_F6});
    screen.press({Qt::Key_Return, Qt::Key_Space});
    QCOMPARE(first->runs, 2);
    screen.commands->commandBag().commandAt(1)->setEnabled(false);
    // Into the menus and out of them again.
    screen.press({Qt::Key_Right, Qt::Key_Down, Qt::Key_End, Qt::Key_Right});
    VELA_COMPARE_SCREEN("focus_in_a_nest", Vela::Test::AlsoDark);
    screen.press({Qt::Key_Escape, Qt::Key_Escape, Qt::Key_Escape});
  }

  void showsWhatIsDoneToIt_data() {
    const Vela::Test::Rows<std::function<void(Screen&)>> row("deed");
    row("actions hide", [](Screen& screen) {
      QAction* const late = screen.action("late");
      late->setVisible(false);
      screen.bar->AddAction(late);
      screen.button("a 0")->hide(); // by the application
      for (QAction* const action : {late, screen.button("a 1")->Action()}) {
        action->setVisible(!action->isVisible());
        screen.button("a 0")->Action()->setText("Renamed");
        settle();
        action->setVisible(!action->isVisible());
        settle();
      }
    });
    row("grids", [](Screen& screen) {
      for (const bool menu : {false, true}) {
        const auto grid = namedGroup(menu ? "menu" : "grid", 5);
        grid->setGrid(true);
        grid->setGridSize(2);
        grid->setIcon(menu ? coloredIcon(Qt::green) : QIcon());
        screen.commands->addCommand(grid, 7);
        settle();
        grid->removeCommand(QString(menu ? "menu 1" : "grid 1"));
        settle();
        if (menu)
          click(*screen.opener(*grid));
      }
    });
    row("buttons of the application's own", [](Screen& screen) {
      auto* const own = new ToolButton(screen.action("own"), screen.bar, &screen.window);
      auto* const other = new ToolButton(screen.action("other"), screen.menu(*screen.outer), &screen.window);
      for (ToolButton* const each : {own, own, other, static_cast<ToolButton*>(nullptr)})
        screen.bar->AddToolButton(each, "own");
      QCOMPARE(screen.bar->Buttons().count(own), 1);
      QVERIFY(!screen.bar->Buttons().contains(other));
    });
    row("a main menu", [](Screen& screen) {
      const auto* const main =
          ToolBar::CreateMainToolBarButtonMenu(*screen.bar, coloredIcon(Qt::blue), "main", "a", 0);
      const QPointer<ToolBar> menu = main->GetMenu();
      menu->AddAction(screen.action("of the menu"));
      settle();
      click(*main);
      settle();
      delete screen.bar;
      QVERIFY(!menu);
    });
    row("looks", [](Screen& screen) {
      screen.opener(*screen.outer)->ShowMenu();
      for (const char* const color : {"pink", "gold", ""}) {
        screen.bar->SetButtonStyleSheet(QStringLiteral("QToolButton { background: %1 }").arg(color),
                                        *color == 'g');
        settle();
      }
      screen.bar->SetButtonSize({60, 60});
      ToolBar::ApplyDefaultToolbarParams(nullptr, "nobody");
      for (const char* const name : {"tools", "others"})
        ToolBar::ApplyDefaultToolbarParams(screen.bar, name);
      screen.bar->SetTooltipGroup("tips");
      QCOMPARE(screen.button("a 0")->GetTooltipObject()->TooltipGroup(), QString("tips"));
    });
    row("names", [](Screen& screen) {
      screen.outer->setToolTip("Opens what is outer");
      for (const QString& text : {QString(), QStringLiteral("&Outer"), QString()}) {
        screen.outer->setText(text);
        settle();
        QCOMPARE(screen.opener(*screen.outer)->accessibleName(),
                 text.isEmpty() ? screen.outer->toolTip() : QString());
        QCOMPARE(screen.menu(*screen.outer)->accessibleName(),
                 text.isEmpty() ? screen.outer->toolTip() : "Outer");
      }
    });
    for (const auto direction : {Qt::LeftToRight, Qt::RightToLeft}) {
      row("keys in a grid " + QByteArray::number(direction), [direction](Screen& screen) {
        screen.window.setLayoutDirection(direction);
        screen.bar->SetGridLayout(2);
        settle();
        screen.press({Qt::Key_F6, Qt::Key_Right, Qt::Key_Down, Qt::Key_Left, Qt::Key_Up, Qt::Key_Up});
      });
      for (const int area :
           {int(Qt::LeftToolBarArea), int(Qt::RightToolBarArea), int(Qt::BottomToolBarArea), 0}) {
        row("at edge " + QByteArray::number(area + 1000 * direction), [area, direction](Screen& screen) {
          screen.window.setLayoutDirection(direction);
          screen.opener(*screen.outer)->ShowMenu();
          screen.bar->SetArea(Qt::ToolBarArea(area));
          settle();
          screen.window.resize(140, 140);
          settle();
          screen.press({Qt::Key_F6, Qt::Key_Down, Qt::Key_Down, Qt::Key_Down, Qt::Key_Down});
        });
      }
    }
    row("closed from the inside", [](Screen& screen) {
      screen.flyoutButton->ShowMenu();
      QVERIFY(screen.bar->DismissLeafMenu());
      settle();
      screen.flyoutButton->ShowMenu();
      Q_EMIT screen.bar->CloseFlyout();
      settle();
      screen.opener(*screen.outer)->ShowMenu();
      screen.opener(*screen.inner)->ShowMenu();
      for (const bool open : {true, true, false}) {
        QCOMPARE(screen.bar->DismissLeafMenu(), open);
        settle();
      }
    });
    row("a locked menu", [](Screen& screen) {
      screen.opener(*screen.outer)->ShowMenu();
      screen.button("outer 0")->setFocus();
      screen.menu(*screen.outer)->SetLocked(true);
    });
    row("a command in two groups", [](Screen& screen) {
      const auto shared = screen.commands->commandBag().getSharedCommand("a 0");
      const auto second = namedGroup("second", 1);
      second->addCommand(shared, 5);
      screen.commands->addCommand(second, 9);
      settle();
      for (CommandGroup* const group : {second.get(), screen.commands.get()}) {
        group->removeCommand("a 0");
        settle();
      }
    });
    row("what does not fit", [](Screen& screen) {
      TooltipReason::setSource([](const QAction& action) { return "Why not " + action.text(); });
      screen.flyoutAction->setEnabled(false);
      screen.flyoutButton->setCheckable(true);
      screen.flyoutButton->setChecked(true);
      screen.window.resize(110, 500);
      settle();
      screen.press({Qt::Key_F6, Qt::Key_End, Qt::Key_Return});
      auto* const list = qobject_cast<QMenu*>(QApplication::activePopupWidget());
      QVERIFY(list && list->toolTipsVisible());
      QCOMPARE(list->actions().constLast()->toolTip(), QString("Why not flyout"));
      QTest::keyClick(list, Qt::Key_Return);
      settle();
      TooltipReason::setSource({});
    });
    row("into an open menu", [](Screen& screen) {
      click(*screen.opener(*screen.outer));
      screen.press({Qt::Key_F6, Qt::Key_Right, Qt::Key_Right, Qt::Key_Down});
    });
  }
  void showsWhatIsDoneToIt() {
    QFETCH(std::function<void(Screen&)>, deed);
    Screen screen;
    deed(screen);
    settle();
  }
};

VELA_TEST_MAIN(ToolBarInteractionTest)
#include "tool_bar_interaction_test.moc"
