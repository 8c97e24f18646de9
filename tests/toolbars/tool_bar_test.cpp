// SPDX-License-Identifier: MIT
#include "toolbars_fixture.h"

#include <support/rows.h>
#include <support/screen_record.h>
#include <support/test_case.h>
#include <ui_base/toolbars/tool_bar.h>
#include <ui_base/toolbars/tool_button_with_button_menu.h>

using namespace Vela::UiBase;
using Vela::Test::settle;

namespace {

std::shared_ptr<CommandGroup> menuGroup(const QByteArray& name) {
  auto made = namedGroup(name, 1);
  made->setIcon(coloredIcon(Qt::red));
  return made;
}

class CountingHandler : public ToolButton::IToolButtonCallbackHandler {
public:
  bool operator()(QAction*) override {
    ++asked;
    if (onAsked)
      onAsked();
    return allowed;
  }
  std::function<void()> onAsked;
  int asked = 0;
  bool allowed = true;
};

} // namespace

class ToolBarTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void followsItsEdgeOfTheParent() {
    QWidget window;
    window.resize(400, 300);
    ToolBar bar(&window, Qt::BottomToolBarArea);
    bar.SetCentered(true);
    const auto commands = namedGroup("view", 3);
    bar.AddCommandGroup(commands.get());
    window.show();
    settle();
    bar.SetOffset({0, 6}); // at once
    QCOMPARE(bar.geometry().bottom(), 300 - 1 - 6);
    window.resize(600, 200);
    settle();
    bar.hide();
    QSignalSpy laidOut(&bar, &ToolBar::LayoutChanged);
    commands->addCommand(namedCommand(QStringLiteral("while hidden")), 9);
    QTRY_VERIFY(!laidOut.isEmpty());
    bar.show();
    VELA_COMPARE_SCREEN("centred_bar");
    bar.hide();
    bar.resize(10, 10);
    bar.ShowMe();
    QCOMPARE(bar.size(), bar.sizeHint());
    bar.hide();
    settle();
    laidOut.clear();
    for (const char* const name : {"two", "at once"})
      commands->addCommand(namedCommand(QString::fromLatin1(name)), 9);
    settle();
    QCOMPARE(laidOut.size(), 1);
    bar.AdjustToolBarSize(false);
    QVERIFY(bar.Buttons().at(5)->x() > bar.Buttons().at(4)->x()); // also while it is hidden
    using Show = void (ToolBar::*)();
    for (const Show show : {Show(&ToolBar::ShowMe), Show(&ToolBar::ShowAnimated), Show(&ToolBar::show)}) {
      bar.hide();
      commands->addCommand(namedCommand(QStringLiteral("+")), 9);
      settle();
      bar.AdjustToolBarSize(false);
      std::invoke(show, bar);
      QCOMPARE(bar.size(), bar.sizeHint());
    }
  }

  void aSlideMayBeginAsAnotherOneEnds() {
    QWidget window;
    window.resize(400, 300);
    ToolBar bar(&window, Qt::TopToolBarArea);
    bar.SetAnimationDuration(20);
    window.show();
    QSignalSpy hidden(&bar, &ToolBar::HideAnimationFinished);
    connect(&bar, &ToolBar::ShowAnimationFinished, &bar, &ToolBar::HideAnimated);
    bar.ShowAnimated();
    QTRY_COMPARE(hidden.count(), 1);
    QVERIFY(bar.isHidden() && !bar.IsLocked());
  }

  void showsWhatBecomesOfItsGroups() {
    QWidget window;
    window.resize(600, 400);
    ToolBar bar(&window, Qt::TopToolBarArea);
    const auto top = namedGroup("a", 2);
    const auto inner = menuGroup("menu");
    const auto deep = menuGroup("deep");
    inner->addCommand(deep, 1);
    top->addCommand(inner, 1);
    const std::shared_ptr<CommandGroup> single(CommandGroup::WrapSingleCmdIntoVirtualCmdGroup(
        new NamedCommand(QStringLiteral("v")), 0, QStringLiteral("single"), QString()));
    top->addCommand(single, 2);
    bar.AddCommandGroup(top.get());
    window.show();
    ToolButton* const nested = bar.FindOneButton(QStringLiteral("deep 0"), true);
    QVERIFY(nested && nested->OwningToolBar()->GetBaseToolBar() == &bar);

    top->addCommand(namedCommand(QStringLiteral("first")), -1);
    top->addCommand(namedCommand(QStringLiteral("middle")), 0);
    deep->addCommand(namedCommand(QStringLiteral("d2")), 0);
    top->removeCommand(QStringLiteral("a 1"));
    settle();
    QVERIFY(bar.FindOneButton(QStringLiteral("d2"), true));
    top->setCommandRank(QStringLiteral("a 0"), 7);
    settle();
    inner->setText(QStringLiteral("Ot&her"));
    inner->setEnabled(false);
    settle();
    VELA_COMPARE_SCREEN("bar_with_menu");

    const auto d = deep->commandBag().getSharedCommand(QStringLiteral("deep 0"));
    bar.RemoveCommand(d.get());
    QVERIFY(!bar.FindOneButton(QStringLiteral("deep 0"), true));
    bar.RemoveCommand(single.get());
    const QPointer<QWidget> menu = bar.MenuButtons(false).at(0)->GetMenu();
    bar.RemoveCommand(inner.get());
    settle();
    QVERIFY(!menu);
    bar.RemoveCommand(top.get());
    QVERIFY(bar.Buttons().isEmpty());
    QCOMPARE(top->toolbar(), nullptr);
  }

  void asksHandlersOncePerTurnHoweverManyCommandsChange() {
    QWidget window;
    window.resize(800, 300);
    ToolBar bar(&window, Qt::TopToolBarArea);
    const auto commands = namedGroup("a", 20);
    bar.AddCommandGroup(commands.get());
    CountingHandler handler;
    CommandBase* const watched = commands->commandBag().commandAt(3);
    bar.AddCallbackHandler(&handler, watched);
    settle();
    QVERIFY(std::exchange(handler.asked, 0) > 0);
    for (int i = 0; i < 20; ++i)
      commands->commandBag().commandAt(i)->setEnabled(false);
    QCOMPARE(handler.asked, 0);
    settle();
    QCOMPARE(handler.asked, 1);
    QVERIFY(watched->isEnabled());
    handler.allowed = false;
    bar.EnableActions();
    QVERIFY(!watched->isEnabled());
    const auto menu = menuGroup("menu");
    commands->addCommand(menu, 99);
    settle();
    CommandBase* const nested = menu->getCommand("menu 0");
    bar.AddCallbackHandler(&handler, nested);
    bar.EnableActions();
    QVERIFY(!nested->isEnabled());
    bar.RemoveCallbackHandler(&handler);
    nested->setEnabled(true);
    settle();
    QVERIFY(nested->isEnabled());
    bar.AddCallbackHandler(&handler, watched);

    auto second = std::make_unique<CountingHandler>();
    handler.allowed = true;
    bar.AddCallbackHandler(second.get(), watched);
    handler.onAsked = [&] {
      bar.RemoveCallbackHandler(second.get());
      second.reset();
    };
    bar.EnableActions();
    QVERIFY(!second && watched->isEnabled());
  }

  void listOfWhatDoesNotFitIsInSight_data() {
    const Vela::Test::Rows<Qt::ToolBarArea, Qt::LayoutDirection> row("area", "direction");
    row("bottom", Qt::BottomToolBarArea, Qt::LeftToRight);
    row("bottom, mirrored", Qt::BottomToolBarArea, Qt::RightToLeft);
    row("right", Qt::RightToolBarArea, Qt::LeftToRight);
    row("left, mirrored", Qt::LeftToolBarArea, Qt::RightToLeft);
  }
  void listOfWhatDoesNotFitIsInSight() {
    QFETCH(Qt::ToolBarArea, area);
    QFETCH(Qt::LayoutDirection, direction);
    QWidget window;
    window.setLayoutDirection(direction);
    window.resize(120, 120);
    ToolBar bar(&window, area);
    const auto commands = namedGroup("a", 9);
    bar.AddCommandGroup(commands.get());
    window.show();
    bar.ShowMe();
    const QRect desktop = window.screen()->availableGeometry();
    const bool atStart = area == Qt::LeftToolBarArea;
    window.move(atStart ? desktop.topLeft() : desktop.bottomRight() - QPoint(119, 119));
    settle();
    auto* const more = bar.findChild<QToolButton*>(QString(), Qt::FindDirectChildrenOnly);
    QVERIFY(more);
    more->click();
    VELA_COMPARE_SCREEN(QStringLiteral("overflow, ") + QTest::currentDataTag(), Vela::Test::AlsoDark);
  }

  void whatDiesWithItsGroupGoes() {
    QWidget window;
    const auto top = namedGroup("a", 1);
    const auto kept = top->commandBag().getSharedCommand(QStringLiteral("a 0"));
    auto dying = namedGroup("dying", 0);
    dying->addCommand(kept, 0);
    ToolBar other(&window, Qt::BottomToolBarArea);
    other.AddCommandGroup(dying.get());
    QCOMPARE(other.Buttons().size(), 1);
    dying.reset();
    settle();
    QVERIFY2(other.Buttons().isEmpty(), "though a command of it lives on");
  }
};

VELA_TEST_MAIN(ToolBarTest)
#include "tool_bar_test.moc"
