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

using SharedGroup = std::shared_ptr<CommandGroup>;

SharedGroup menuGroup(const QByteArray& name) {
  auto made = namedGroup(name, 1);
  made->setIcon(coloredIcon(Qt::red));
  return made;
}

QStringList names(const ToolBar& bar) {
  QStringList all;
  const auto buttons = bar.Buttons();
  for (const ToolButton* const button : buttons)
    all.append(button->Action() ? button->text() : QLatin1Char('>') + button->objectName());
  return all;
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
    QTRY_COMPARE(bar.geometry().bottom(), 300 - 1);
    bar.SetOffset({0, 6}); // at once
    QCOMPARE(bar.geometry().bottom(), 300 - 1 - 6);
    window.resize(600, 200);
    QTRY_COMPARE(bar.geometry().bottom(), 200 - 1 - 6);
    QVERIFY(std::abs(bar.geometry().center().x() - 299) <= 1);
    bar.hide();
    const int before = bar.width();
    QSignalSpy laidOut(&bar, &ToolBar::LayoutChanged);
    commands->addCommand(namedCommand(QStringLiteral("while hidden")), 9);
    QTRY_VERIFY(!laidOut.isEmpty());
    bar.show();
    QVERIFY(bar.width() > before);
    QCOMPARE(bar.size(), bar.sizeHint());
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
    const SharedGroup single(CommandGroup::WrapSingleCmdIntoVirtualCmdGroup(
        new NamedCommand(QStringLiteral("v")), 0, QStringLiteral("single"), QString()));
    top->addCommand(single, 2);
    bar.AddCommandGroup(top.get());
    window.show();
    QCOMPARE(names(bar), QStringList({"a 0", "a 1", ">menu", "v"}));
    ToolButton* const nested = bar.FindOneButton(QStringLiteral("deep 0"), true);
    QVERIFY(nested && nested->OwningToolBar()->GetBaseToolBar() == &bar);

    top->addCommand(namedCommand(QStringLiteral("first")), -1);
    top->addCommand(namedCommand(QStringLiteral("middle")), 0);
    deep->addCommand(namedCommand(QStringLiteral("d2")), 0);
    top->removeCommand(QStringLiteral("a 1"));
    QTRY_COMPARE(names(bar), QStringList({"first", "a 0", "middle", ">menu", "v"}));
    QVERIFY(bar.FindOneButton(QStringLiteral("d2"), true));
    top->setCommandRank(QStringLiteral("a 0"), 7);
    QTRY_COMPARE(names(bar), QStringList({"first", "middle", ">menu", "a 0", "v"}));

    const ToolButton* const opener = bar.FindOneButton(inner->commandId(), false);
    inner->setText(QStringLiteral("Ot&her"));
    inner->setEnabled(false);
    QTRY_VERIFY(opener->text() == QStringLiteral("Other") && !opener->isEnabled());
    VELA_COMPARE_SCREEN("bar_with_menu");

    const auto d = deep->commandBag().getSharedCommand(QStringLiteral("deep 0"));
    bar.RemoveCommand(d.get());
    QVERIFY(!bar.FindOneButton(QStringLiteral("deep 0"), true));
    bar.RemoveCommand(single.get());
    bar.RemoveCommand(inner.get());
    QCOMPARE(names(bar), QStringList({"first", "middle", "a 0"}));
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
    handler.asked = 0;
    for (int i = 0; i < 20; ++i)
      commands->commandBag().commandAt(i)->setEnabled(false);
    QCOMPARE(handler.asked, 0);
    settle();
    QCOMPARE(handler.asked, 1);
    QVERIFY(watched->isEnabled());
    handler.allowed = false;
    bar.EnableActions();
    QVERIFY(!watched->isEnabled());

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
    const auto buttons = bar.findChildren<QToolButton*>(QString(), Qt::FindDirectChildrenOnly);
    QToolButton* const more = buttons.value(0);
    QVERIFY(more && more->isVisible());
    more->click();
    const auto* const list = more->findChild<QMenu*>();
    QVERIFY(list && list->isVisible() && desktop.contains(list->geometry()));
    VELA_COMPARE_SCREEN(QStringLiteral("overflow, ") + QTest::currentDataTag(), Vela::Test::AlsoDark);
    QVERIFY(!list->geometry().intersects(QRect(more->mapToGlobal(QPoint()), more->size())));
  }

  void whatDiesWithItsGroupGoes() {
    QWidget window;
    const auto top = namedGroup("a", 1);
    const auto kept = top->commandBag().getSharedCommand(QStringLiteral("a 0"));
    auto dying = namedGroup("dying", 0);
    dying->addCommand(kept, 0);
    ToolBar other(&window, Qt::BottomToolBarArea);
    other.AddCommandGroup(dying.get());
    QCOMPARE(names(other), QStringList("a 0"));
    dying.reset();
    settle();
    QVERIFY2(other.Buttons().isEmpty(), "though a command of it lives on");
  }
};

VELA_TEST_MAIN(ToolBarTest)
#include "tool_bar_test.moc"
