// SPDX-License-Identifier: MIT
#include "tool_screen.h"

#include <support/test_case.h>
#include <ui_base/commands/command_base.h>

#include <QDialog>
#include <QMenu>
#include <QMouseEvent>

using Taren::Objects::adoptShared;
using Vela::Test::RecordingTool;
using Vela::Test::ToolScreen;
using namespace Vela::UiBase;

namespace {

/// Takes the input named in takes while it executes.
class InputCommand : public CommandBase, public ViewResponder {
  Q_OBJECT
  COMMAND_ID(InputCommand)

public:
  InputCommand(CmdsViewController* controller, std::shared_ptr<QStringList> journal)
      : CommandBase(controller), m_journal(std::move(journal)) {}

  QStringList takes;

  void begin() {
    broadcast([this](CommandStateProtocol* observer) { observer->commandBegan(this); });
  }
  void end() {
    broadcast([this](CommandStateProtocol* observer) { observer->commandEnded(this); });
  }
  bool onExecuteAsync(bool) override {
    if (work)
      work();
    return true;
  }
  std::function<void()> work;

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

} // namespace

class ToolRoutingTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void inputReachesTheRightTool_data();
  void inputReachesTheRightTool();
  void heldBackPressIsReplayedWhereItWas();
  void missingToolDeclines();
  void cursorOfTheViewComesBack_data();
  void cursorOfTheViewComesBack();
  void idleCursorShowsAtOnce();
  void toolsPushedBeforeTheViewShowTheirCursor();
  void toolLiesOnOneStackOnly();
  void toolMayActWhereItsOperationEnds_data();
  void toolMayActWhereItsOperationEnds();
  void operationEndsWithItsMouse_data();
  void operationEndsWithItsMouse();
  void viewMayGoDuringAnOperation_data();
  void viewMayGoDuringAnOperation();
  void movingTheMouseLeavesTheFocus();

  void executingCommandComesFirst_data();
  void executingCommandComesFirst();
  void executingCommandIsTheOneThatBegan();
  void endedCommandGivesWayToTheOneBefore();
  void commandThatTakesTheReleaseLeavesNoOperation();
};

void ToolRoutingTest::inputReachesTheRightTool_data() {
  QTest::addColumn<QString>("script");
  QTest::addColumn<QString>("told");
  QTest::newRow("left drag") << "L+ mv L-"
                             << "left:press left:move left:release left:end";
  QTest::newRow("middle drag") << "M+ mv M-"
                               << "middle:press middle:move middle:release middle:end";
  QTest::newRow("right drag") << "R+ mv R-"
                              << "right:press right:move right:release right:end";
  QTest::newRow("right click opens the menu") << "R+ R-"
                                              << "menu";
  QTest::newRow("no menu after a drag, also one that was ended")
      << "R+ mv L+ L- R-"
      << "right:press right:move right:end left:press "
         "left:release left:end";
  QTest::newRow("hover") << "mv"
                         << "left:move";
  QTest::newRow("right press ends left drag") << "L+ R+ mv L- R-"
                                              << "left:press left:end right:press right:move right:release "
                                                 "right:release right:end";
  QTest::newRow("left press ends right drag")
      << "R+ mv L+ mv L- R-"
      << "right:press right:move right:end left:press left:move left:release left:end";
  QTest::newRow("middle press ends left drag")
      << "L+ M+ mv M- L-"
      << "left:press left:end middle:press middle:move middle:release "
         "middle:end";
  QTest::newRow("release of another button") << "M+ R+ R-"
                                             << "middle:press middle:end menu";
  QTest::newRow("any release drops the right press") << "R+ L+ L- mv R-"
                                                     << "left:press left:release left:end right:move";
  QTest::newRow("no menu in the middle of an operation")
      << "R+ L+ R- mv L-"
      << "left:press left:release left:move left:release left:end";
  QTest::newRow("operations that begin by themselves take turns")
      << "M+ begin key M-"
      << "middle:press middle:end left:key left:keyup right:release right:end";
  QTest::newRow("wheel") << "wh"
                         << "left:wheel wheel:wheel";
  QTest::newRow("no wheel during a drag") << "L+ wh L-"
                                          << "left:press left:release left:end";
  QTest::newRow("keys go to the left tool, also during a drag")
      << "key M+ key M-"
      << "left:key left:keyup middle:press left:key left:keyup middle:release middle:end";
  QTest::newRow("double click presses once") << "LL"
                                             << "left:press left:release left:end left:double";
  QTest::newRow("right double click") << "RR"
                                      << "menu right:double";
  QTest::newRow("double click ends another drag")
      << "R+ mv LL R-"
      << "right:press right:move right:end left:press left:release left:end left:double";
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
  QPointF pressed;
  QPointF moved;
  class Tool : public InteractiveTool {
  public:
    Tool(BaseView* view, QPointF& pressed, QPointF& moved)
        : InteractiveTool(view), m_pressed(pressed), m_moved(moved) {}
    bool mousePress(QMouseEvent* event) override {
      m_pressed = event->position();
      return InteractiveTool::mousePress(event);
    }
    bool mouseMove(QMouseEvent* event) override {
      m_moved = event->position();
      return InteractiveTool::mouseMove(event);
    }

  private:
    QPointF& m_pressed;
    QPointF& m_moved;
  };
  screen.controller->pushTool(RightButton, std::make_shared<Tool>(screen.view, pressed, moved));
  screen.play("mv R+ mv");
  QCOMPARE(moved - pressed, QPointF(7, 11));
  screen.play("R-");
}

void ToolRoutingTest::missingToolDeclines() {
  ToolScreen screen;
  screen.controller->clearTools();
  screen.play("L+ mv L- R+ mv R- M+ M- LL wh key");
  QCOMPARE(screen.told(), QStringLiteral("menu")); // without a tool no move makes a drag of it
  QCOMPARE(screen.cursor(), Qt::ArrowCursor);
}

void ToolRoutingTest::cursorOfTheViewComesBack_data() {
  QTest::addColumn<QString>("script");
  QTest::newRow("tools popped") << "L+ L- pop";
  QTest::newRow("in a drag") << "L+ mv pop L-";
  QTest::newRow("under another drag") << "M+ pop M-";
  QTest::newRow("tools cleared") << "M+ clear M-";
  QTest::newRow("reset in a drag") << "M+ reset M- reset pop";
  QTest::newRow("controller gone") << "gone";
  QTest::newRow("controller gone in a drag") << "R+ mv gone R-";
}

void ToolRoutingTest::cursorOfTheViewComesBack() {
  QFETCH(const QString, script);
  for (const bool own : {true, false}) {
    ToolScreen screen;
    screen.on("pop", [&] { screen.controller->popTool(LeftButton); });
    screen.on("clear", [&] { screen.controller->clearTools(); });
    screen.on("reset", [&] { screen.controller->resetTools(); });
    screen.on("gone", [&] { screen.view->setViewController(nullptr); });
    const auto left = screen.controller->popTool(LeftButton);
    screen.window.setCursor(Qt::WaitCursor);
    if (own)
      screen.view->setCursor(Qt::IBeamCursor);
    screen.controller->pushTool(LeftButton, left);
    QCOMPARE(screen.cursor(), Qt::OpenHandCursor);
    screen.play(script);
    QCOMPARE(screen.cursor(), own ? Qt::IBeamCursor : Qt::WaitCursor);
    QCOMPARE(screen.view->testAttribute(Qt::WA_SetCursor), own);
  }
}

void ToolRoutingTest::idleCursorShowsAtOnce() {
  ToolScreen screen;
  const auto left = screen.tool("left");
  left->setIdleCursor(Qt::PointingHandCursor);
  QCOMPARE(screen.cursor(), Qt::PointingHandCursor);
  screen.tool("right")->setIdleCursor(Qt::WaitCursor);
  screen.play("M+");
  left->setIdleCursor(Qt::CrossCursor);
  QCOMPARE(screen.cursor(), Qt::SizeHorCursor);
  screen.play("M-");
  QCOMPARE(screen.cursor(), Qt::CrossCursor);
  screen.play("L+");
  left->setIdleCursor(Qt::WhatsThisCursor);
  QCOMPARE(screen.cursor(), Qt::ClosedHandCursor);
  left->setOperatingCursor(Qt::WaitCursor);
  QCOMPARE(screen.cursor(), Qt::WaitCursor);
  screen.play("L-");
  QCOMPARE(screen.cursor(), Qt::WhatsThisCursor);
  screen.controller->popTool(LeftButton);
  QCOMPARE(screen.cursor(), Qt::ArrowCursor);
}

void ToolRoutingTest::toolsPushedBeforeTheViewShowTheirCursor() {
  const auto controller = Taren::Objects::createShared<CmdsViewController>();
  const auto tool = std::make_shared<RecordingTool>("t", std::make_shared<QStringList>());
  tool->setIdleCursor(Qt::CrossCursor);
  controller->pushTool(LeftButton, tool);
  for (int i = 0; i < 2; ++i) { // the second view replaces the first
    BaseView view;
    controller->setView(&view);
    view.show();
    QCOMPARE(view.cursor().shape(), Qt::CrossCursor);
    controller->popTool(LeftButton);
    QCOMPARE(view.cursor().shape(), Qt::ArrowCursor);
    controller->pushTool(LeftButton, tool);
  }
}

void ToolRoutingTest::toolLiesOnOneStackOnly() {
  ToolScreen screen;
  const auto other = Taren::Objects::createShared<CmdsViewController>();
  const auto left = screen.tool("left");
  screen.controller->pushTool(LeftButton, left);
  screen.controller->pushTool(RightButton, left);
  other->pushTool(LeftButton, left);
  QCOMPARE(screen.controller->heldTools().size(), 4);
  QVERIFY(left->isActive() && other->heldTools().isEmpty());
  struct SharingTool : RecordingTool {
    using RecordingTool::RecordingTool;
    std::function<void()> onSuspend;
    void suspend() override {
      RecordingTool::suspend();
      onSuspend();
    }
  };
  const auto third = screen.makeTool("third", Qt::CrossCursor, Qt::CrossCursor);
  const auto top = std::make_shared<SharingTool>("top", screen.journal, screen.view);
  top->onSuspend = [&] {
    screen.controller->pushTool(RightButton, third);
    other->pushTool(LeftButton, third);
  };
  screen.controller->pushTool(MiddleButton, top);
  screen.controller->pushTool(MiddleButton, third);
  QCOMPARE(screen.controller->heldTools().size(), 6);
  QVERIFY(third->isActive() && third->getDelegate() == screen.controller && other->heldTools().isEmpty());
  screen.controller->clearTools(); // which leaves it active
  other->pushTool(LeftButton, left);
  QVERIFY(left->isActive() && other->holds(*left) && left->getDelegate() == other.get());
}

void ToolRoutingTest::toolMayActWhereItsOperationEnds_data() {
  QTest::addColumn<QString>("script");
  QTest::addColumn<QString>("act");
  QTest::addColumn<QString>("top");
  QTest::newRow("takes itself off") << "L+ L-"
                                    << "pop"
                                    << "left";
  QTest::newRow("takes itself off while it is popped") << "L+ pop"
                                                       << "pop"
                                                       << "left";
  QTest::newRow("takes itself off while it is pushed over") << "L+ push"
                                                            << "pop"
                                                            << "third";
  QTest::newRow("pushes another while it is popped") << "L+ pop"
                                                     << "push"
                                                     << "third";
  QTest::newRow("pushes another while it is pushed over") << "L+ push"
                                                          << "push"
                                                          << "third";
  QTest::newRow("takes the next one off") << "L+ M+"
                                          << "pop middle"
                                          << "one-shot";
  QTest::newRow("deletes the view while it is popped") << "L+ pop"
                                                       << "delete view"
                                                       << "";
  QTest::newRow("deletes the controller at a press") << "L+ M+"
                                                     << "delete controller"
                                                     << "";
  QTest::newRow("deletes the controller when the mouse is lost") << "L+ hide"
                                                                 << "delete controller"
                                                                 << "";
  QTest::newRow("deletes the controller when it begins elsewhere") << "L+ begin"
                                                                   << "delete controller"
                                                                   << "";
}

void ToolRoutingTest::toolMayActWhereItsOperationEnds() {
  QFETCH(const QString, script);
  QFETCH(const QString, act);
  QFETCH(const QString, top);
  ToolScreen screen;
  const QPointer<BaseViewController> alive(screen.controller);
  const auto oneShot = screen.makeTool("one-shot", Qt::CrossCursor, Qt::BlankCursor);
  const auto third = screen.makeTool("third", Qt::WaitCursor, Qt::WaitCursor);
  const auto right = screen.tool("right");
  screen.on("push", [&] { screen.controller->pushTool(LeftButton, third); });
  screen.on("pop", [&] { QCOMPARE(screen.controller->popTool(LeftButton), oneShot); });
  screen.on("pop middle", [&] { screen.controller->popTool(MiddleButton); });
  screen.on("hide", [&] { screen.view->hide(); });
  screen.on("begin", [&] { right->startOperation(); });
  screen.on("delete view", [&] { delete screen.view; });
  screen.on("delete controller", [&] { delete screen.controller; });
  screen.controller->pushTool(LeftButton, oneShot);
  oneShot->onEnd = [&] {
    oneShot->onEnd = nullptr;
    screen.act(act);
  };
  screen.play(script);
  QVERIFY(!oneShot->isOperating());
  QCOMPARE(bool(alive), !act.startsWith("delete"));
  if (!alive)
    return;
  QCOMPARE(screen.controller->getTool(LeftButton), screen.tool(top));
  QVERIFY(screen.tool(top)->isActive());
  QCOMPARE(screen.cursor(), screen.tool(top)->getIdleCursor().shape());
}

void ToolRoutingTest::operationEndsWithItsMouse_data() {
  QTest::addColumn<QString>("loss");
  QTest::newRow("the release is lost") << "L? R? M? mv";
  QTest::newRow("the focus goes elsewhere") << "focus";
  QTest::newRow("a dialog blocks the window") << "dialog";
  QTest::newRow("a menu opens") << "popup";
  QTest::newRow("the view is hidden") << "hide";
  QTest::newRow("the view is covered") << "cover";
  QTest::newRow("the view is disabled") << "disable";
  QTest::newRow("another window is activated") << "deactivate";
  QTest::newRow("the application ends it") << "cancel";
}

void ToolRoutingTest::operationEndsWithItsMouse() {
  QFETCH(QString, loss);
  for (const QString press : {"L+", "R+ mv", "M+", "R+"}) {
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
    screen.on("disable", [&] {
      screen.edit->setFocus();
      screen.play(press.contains("mv") ? "R- " + press : press.at(0) + QString("- ") + press);
      screen.window.setEnabled(false);
    });
    screen.on("cover", [&] { screen.controller->presentViewController(covering, NoTransition); });
    screen.on("deactivate", [&] {
      other.show();
      other.activateWindow();
      QVERIFY(QTest::qWaitForWindowActive(&other));
    });
    screen.on("cancel", [&] { screen.controller->endRunningOperation(); });

    screen.play(press);
    QCOMPARE(bool(screen.controller->getOperatingTool()), press != "R+");
    screen.play(loss);
    QTRY_VERIFY(!screen.controller->getOperatingTool());
    QVERIFY(screen.tool("left")->isActive());
    QCOMPARE(screen.cursor(), Qt::OpenHandCursor);
    screen.told();
    menu.close();
    dialog.close();
    QTestPrivate::qtestMouseButtons = Qt::RightButton;
    screen.play("mv"); // what a right press started does not come back
    QVERIFY(!screen.told().contains("right:press"));
    cover.setParent(nullptr);
  }
}

void ToolRoutingTest::viewMayGoDuringAnOperation_data() {
  QTest::addColumn<QString>("end");
  QTest::newRow("closed") << "close";
  QTest::newRow("deleted") << "delete";
  QTest::newRow("the controller deleted") << "controller";
}

void ToolRoutingTest::viewMayGoDuringAnOperation() {
  QFETCH(QString, end);
  ToolScreen screen;
  const auto left = screen.tool("left");
  screen.on("close", [&] { screen.view->close(); });
  screen.on("delete", [&] { delete screen.view; });
  screen.on("controller", [&] { delete screen.controller; });
  screen.play("L+ " + end);
  Vela::Test::settle();
  QVERIFY(!left->isOperating());
  QCOMPARE(left->getView(), screen.view.data());
  QVERIFY(!left->getDelegate());
  QVERIFY(!screen.view || screen.cursor() == Qt::ArrowCursor);
  QTestPrivate::qtestMouseButtons = Qt::NoButton;
}

void ToolRoutingTest::movingTheMouseLeavesTheFocus() {
  ToolScreen screen;
  screen.edit->setFocus();
  screen.play("mv mv wh");
  QVERIFY(screen.edit->hasFocus());
  QTest::keyClicks(&screen.window, "text");
}

void ToolRoutingTest::executingCommandComesFirst_data() {
  QTest::addColumn<QStringList>("takes");
  QTest::addColumn<QString>("script");
  QTest::addColumn<QString>("told");
  const QStringList all{"press", "move", "release", "double", "wheel", "key", "keyup"};
  QTest::newRow("takes all") << all << "L+ mv L- R+ mv R- wh key LL"
                             << "command:press command:move command:release command:press command:move "
                                "command:release command:wheel command:key command:keyup command:press "
                                "command:release command:double";
  QTest::newRow("takes presses only") << QStringList{"press"} << "L+ mv L- wh"
                                      << "command:press left:move left:wheel wheel:wheel";
  QTest::newRow("takes none") << QStringList() << "L+ mv L-"
                              << "left:press left:move left:release left:end";
}

void ToolRoutingTest::executingCommandComesFirst() {
  QFETCH(QStringList, takes);
  QFETCH(QString, script);
  ToolScreen screen;
  auto* const command = new InputCommand(screen.controller, screen.journal);
  command->takes = takes;
  screen.controller->addCommand(command);
  screen.play("L+");
  command->begin();
  QVERIFY(!screen.controller->getOperatingTool()); // the mouse is the command's now
  screen.play("L-");
  screen.told();
  screen.play(script);
  QTEST(screen.told(), "told");
  command->end();
  screen.play("L+ L-");
  QCOMPARE(screen.told(), QStringLiteral("left:press left:release left:end"));
}

void ToolRoutingTest::executingCommandIsTheOneThatBegan() {
  ToolScreen screen;
  auto* const begun = new InputCommand(screen.controller, screen.journal);
  auto* const ran = new InputCommand(screen.controller, screen.journal);
  begun->takes = QStringList("key");
  ran->takes = QStringList("wheel");
  screen.controller->addCommand(begun);
  screen.controller->addCommand(ran);
  const auto who = [&screen] {
    screen.play("key wh");
    return screen.told();
  };
  const QString begunTakes("command:key left:keyup left:wheel wheel:wheel");
  const QString ranTakes("left:key left:keyup command:wheel");
  const QString noneTakes("left:key left:keyup left:wheel wheel:wheel");

  QString during;
  ran->work = [&] { during = who(); };
  ran->trigger();
  QCOMPARE(during, ranTakes);
  QCOMPARE(who(), noneTakes);

  begun->begin();
  ran->trigger(); // runs inside the one that began, and leaves it its place
  QCOMPARE(during, begunTakes);
  QCOMPARE(who(), begunTakes);
  ran->end(); // of a command that did not begin
  QCOMPARE(who(), begunTakes);
  screen.controller->removeCommand(begun);
  QCOMPARE(who(), noneTakes);
}

void ToolRoutingTest::endedCommandGivesWayToTheOneBefore() {
  ToolScreen screen;
  std::vector<InputCommand*> commands;
  for (int i = 0; i < 3; ++i) {
    commands.push_back(new InputCommand(screen.controller, screen.journal));
    commands.back()->takes = QStringList(i == 0 ? "key" : i == 1 ? "wheel" : "press");
    screen.controller->addCommand(commands.back());
  }
  const auto who = [&screen] {
    screen.play("key wh L+ L-");
    return screen.told().section("command:", 1).section(' ', 0, 0);
  };
  commands[0]->begin();
  commands[1]->begin();
  QCOMPARE(who(), QString("wheel"));
  commands[2]->begin();
  commands[1]->end(); // not in the order in which they began
  QCOMPARE(who(), QString("press"));
  commands[2]->end();
  QCOMPARE(who(), QString("key"));
  commands[2]->begin();
  commands[2]->begin();
  commands[2]->end();
  QCOMPARE(who(), QString("key"));
  commands[0]->end();
  QCOMPARE(who(), QString());
}

void ToolRoutingTest::commandThatTakesTheReleaseLeavesNoOperation() {
  ToolScreen screen;
  auto* const command = new InputCommand(screen.controller, screen.journal);
  command->takes = QStringList{"release", "move"};
  screen.controller->addCommand(command);
  command->begin();
  screen.play("L+");
  QVERIFY(screen.tool("left")->isOperating());
  screen.play("L-");
  QVERIFY(screen.tool("left")->isActive());
}

VELA_TEST_MAIN(ToolRoutingTest)
#include "tool_routing_test.moc"
