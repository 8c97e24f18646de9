// SPDX-License-Identifier: MIT
#include "tool_screen.h"

#include <support/test_case.h>
#include <ui_base/commands/command_base.h>

#include <QDialog>
#include <QMenu>

using Vela::Test::ToolScreen;
using namespace Vela::UiBase;

namespace {

/// Takes the input named in takes while it executes.
class InputCommand : public CommandBase, public ViewResponder {
  Q_OBJECT
  COMMAND_ID(InputCommand)

public:
  InputCommand(const ToolScreen& screen, const char* input)
      : CommandBase(screen.controller), takes(QString(input).split(' ')), m_journal(screen.journal) {
    screen.controller->addCommand(this);
  }

  const QStringList takes;
  std::function<void()> work;

  void begin() {
    broadcast([this](CommandStateProtocol* observer) { observer->commandBegan(this); });
  }
  void end() {
    broadcast([this](CommandStateProtocol* observer) { observer->commandEnded(this); });
  }
  bool onExecuteAsync(bool) override {
    work();
    return true;
  }

  bool mousePress(QMouseEvent*) override { return taken("press"); }
  bool mouseMove(QMouseEvent*) override { return taken("move"); }
  bool mouseRelease(QMouseEvent*) override { return taken("release"); }
  bool mouseDoubleClick(QMouseEvent*) override { return taken("double"); }
  bool mouseWheel(QWheelEvent*) override { return taken("wheel"); }
  bool keyPress(QKeyEvent*) override { return taken("key"); }
  bool keyRelease(QKeyEvent*) override { return taken("keyup"); }

private:
  bool taken(const QString& input) {
    if (takes.contains(input))
      m_journal->append("command:" + input);
    return takes.contains(input);
  }

  const std::shared_ptr<QStringList> m_journal;
};

/// Hands on what lies over it when it is told to wait.
class HandingTool : public Vela::Test::RecordingTool {
public:
  using RecordingTool::RecordingTool;
  void suspend() override {
    RecordingTool::suspend();
    if (hand)
      std::exchange(hand, {})();
  }
  std::function<void()> hand;
};

} // namespace

/// Which command or tool gets what, which cursor is seen, and how operations end.
class ToolRoutingTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void inputReachesTheRightTool_data();
  void inputReachesTheRightTool();
  void heldBackPressIsReplayedWhereItWas();
  void viewWithoutACursorOfItsOwnHasNoneAfterwards();
  void operationEndsWithItsMouse_data();
  void operationEndsWithItsMouse();
  void movingTheMouseLeavesTheFocus();
  void toolsWaitForAnotherOne();

  void executingCommandComesFirst_data();
  void executingCommandComesFirst();
  void executingCommandIsTheLatestThatBegan();
};

void ToolRoutingTest::inputReachesTheRightTool_data() {
  QTest::addColumn<QString>("script");
  QTest::addColumn<QString>("told");
  const auto row = [](const char* name, const char* script, const char* told) {
    QTest::newRow(name) << QString(script) << QString(told);
  };
  row("right click opens the menu", "R+ R-", "menu");
  row("no menu after a drag, also one that was ended", "R+ mv L+ L- R-",
      "right:press right:move right:end left:press left:release left:end");
  row("right press ends left drag", "L+ R+ mv L- R-",
      "left:press left:end right:press right:move right:release right:release right:end");
  row("middle press ends left drag", "L+ M+ mv M- L-",
      "left:press left:end middle:press middle:move middle:release middle:end");
  row("release of another button", "M+ R+ R-", "middle:press middle:end menu");
  row("any release drops the right press", "R+ L+ L- mv R-", "left:press left:release left:end right:move");
  row("no menu in the middle of an operation", "R+ L+ R- mv L-",
      "left:press left:release left:move left:release left:end");
  row("operations that begin by themselves take turns", "M+ begin key M-",
      "middle:press middle:end left:key left:keyup right:release right:end");
  row("no wheel during a drag", "wh L+ wh L-", "left:wheel wheel:wheel left:press left:release left:end");
  row("double click presses once", "LL", "left:press left:release left:end left:double");
  row("double click ends another drag", "R+ mv LL R-",
      "right:press right:move right:end left:press left:release left:end left:double");
}

void ToolRoutingTest::inputReachesTheRightTool() {
  QFETCH(QString, script);
  ToolScreen screen;
  const auto right = screen.tool("right");
  screen.on("begin", [&] { right->startOperation(); });
  screen.play(script);
  if (right->isOperating())
    right->endOperation();
  QTEST(screen.told(), "told");
  QVERIFY(!screen.controller->getOperatingTool());
}

void ToolRoutingTest::heldBackPressIsReplayedWhereItWas() {
  ToolScreen screen;
  screen.play("mv R+ mv");
  QCOMPARE(screen.tool("right")->pressEvent().position(), QPointF(24, 32));
}

void ToolRoutingTest::viewWithoutACursorOfItsOwnHasNoneAfterwards() {
  for (const char* script : {"L+ mv pop L-", "M+ clear M-", "R+ mv gone R-"}) {
    ToolScreen screen;
    screen.on("pop", [&] { screen.controller->popTool(LeftButton); });
    screen.on("clear", [&] { screen.controller->clearTools(); });
    screen.on("gone", [&] { screen.view->setViewController(nullptr); });
    screen.window.setCursor(Qt::WaitCursor);
    QCOMPARE(screen.cursor(), Qt::OpenHandCursor);
    screen.play(script);
    QCOMPARE(screen.cursor(), Qt::WaitCursor);
  }
}

void ToolRoutingTest::operationEndsWithItsMouse_data() {
  QTest::addColumn<QString>("loss");
  for (const char* loss : {"L? R? M? mv", "focus", "dialog", "popup", "hide", "cover", "deactivate"})
    QTest::newRow(loss) << QString(loss);
}

void ToolRoutingTest::operationEndsWithItsMouse() {
  QFETCH(QString, loss);
  for (const QString press : {"L+", "R+ mv", "R+"}) {
    ToolScreen screen;
    QDialog dialog(&screen.window);
    dialog.setModal(true);
    QMenu menu(screen.view);
    menu.addAction("entry");
    QWidget other;
    BaseView cover;
    auto* const covering = new BaseViewController(&cover);
    screen.on("focus", [&] { screen.edit->setFocus(); });
    screen.on("dialog", [&] { dialog.show(); });
    screen.on("popup", [&] { menu.popup(screen.view->mapToGlobal(QPoint(5, 5))); });
    screen.on("hide", [&] { screen.view->hide(); });
    screen.on("cover", [&] { screen.controller->presentViewController(covering, NoTransition); });
    screen.on("deactivate", [&] {
      other.show();
      other.activateWindow();
      QVERIFY(QTest::qWaitForWindowActive(&other));
    });
    if (loss == "dialog" || loss == "deactivate") { // which an unfocused view loses to as well
      screen.view->setFocusPolicy(Qt::NoFocus);
      screen.edit->setFocus();
    }
    screen.play(press);
    QCOMPARE(bool(screen.controller->getOperatingTool()), press != "R+");
    screen.play(loss);
    QTRY_VERIFY(!screen.controller->getOperatingTool());
    screen.told();
    menu.close();
    dialog.close();
    QTestPrivate::qtestMouseButtons = Qt::RightButton;
    screen.play("mv"); // what a right press started does not come back
    QVERIFY(!screen.told().contains("right:press"));
    cover.setParent(nullptr);
  }
}

void ToolRoutingTest::movingTheMouseLeavesTheFocus() {
  ToolScreen screen;
  screen.edit->setFocus();
  screen.play("mv mv wh");
  QVERIFY(screen.edit->hasFocus());
}

void ToolRoutingTest::toolsWaitForAnotherOne() {
  for (const char* script : {"R+ mv push", "push R+ mv pop"}) {
    ToolScreen screen;
    const auto left = screen.tool("left");
    const auto over = std::make_shared<Vela::Test::RecordingTool>("over", screen.journal);
    screen.on("push", [&] { screen.controller->pushTool(LeftButton, over); });
    screen.on("pop", [&] { screen.controller->popTool(LeftButton); });
    screen.play(script);
    QVERIFY2(screen.controller->getTool(LeftButton)->isSuspended(), script);
    screen.play("R-");
    QVERIFY2(screen.controller->getTool(LeftButton)->isActive(), script);
    screen.play("push");
    left->resume();
    left->startOperation();
    left->endOperation();
    QVERIFY(left->isSuspended()); // below the top
    left->resume();               // as a reset does
    screen.play("pop");
    QCOMPARE(screen.cursor(), Qt::OpenHandCursor);
  }
  ToolScreen screen;
  const auto below = std::make_shared<HandingTool>("below", screen.journal);
  const auto over = std::make_shared<Vela::Test::RecordingTool>("over", screen.journal);
  screen.controller->pushTool(LeftButton, below);
  screen.controller->pushTool(LeftButton, over);
  below->hand = [&] {
    screen.controller->popTool(LeftButton);
    screen.controller->pushTool(MiddleButton, over);
  };
  screen.controller->pushTool(RightButton, std::make_shared<InteractiveTool>(screen.view));
  QVERIFY2(over->isActive(), "it has gone where nothing waits");
}

void ToolRoutingTest::executingCommandComesFirst_data() {
  QTest::addColumn<QString>("script");
  QTest::addColumn<QString>("told");
  QTest::newRow("press move release double wheel key keyup")
      << "L+ mv L- wh key LL"
      << "command:press command:move command:release command:wheel command:key command:keyup command:press "
         "command:release command:double";
  QTest::newRow("press") << "L+ mv L- wh"
                         << "command:press left:move left:wheel wheel:wheel";
  QTest::newRow("release") << "L+ L-"
                           << "left:press command:release left:end";
}

void ToolRoutingTest::executingCommandComesFirst() {
  QFETCH(QString, script);
  ToolScreen screen;
  auto* const command = new InputCommand(screen, QTest::currentDataTag());
  screen.play("L+");
  command->begin();
  QVERIFY(!screen.controller->getOperatingTool()); // the mouse is the command's now
  screen.play("L-");
  screen.told();
  screen.play(script);
  QTEST(screen.told(), "told");
}

void ToolRoutingTest::executingCommandIsTheLatestThatBegan() {
  ToolScreen screen;
  auto* const first = new InputCommand(screen, "key");
  auto* const second = new InputCommand(screen, "wheel");
  auto* const ran = new InputCommand(screen, "press");
  const auto who = [&screen] {
    screen.play("key wh L+ L-");
    return screen.told().section("command:", 1).section(' ', 0, 0);
  };
  QString during;
  ran->work = [&] { during = who(); };
  ran->trigger();
  QCOMPARE(during, QString("press"));
  QCOMPARE(who(), QString());

  first->begin();
  ran->trigger(); // runs inside the one that began, and leaves it its place
  QCOMPARE(during, QString("key"));
  ran->end(); // of a command that did not begin
  QCOMPARE(who(), QString("key"));
  second->begin();
  second->begin();
  QCOMPARE(who(), QString("wheel"));
  second->end();
  QCOMPARE(who(), QString("key"));
  second->begin();
  first->end(); // not in the order in which they began
  QCOMPARE(who(), QString("wheel"));
  screen.controller->removeCommand(second);
  QCOMPARE(who(), QString());
}

VELA_TEST_MAIN(ToolRoutingTest)
#include "tool_routing_test.moc"
