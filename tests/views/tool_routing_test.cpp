// SPDX-License-Identifier: MIT
#include "tool_screen.h"

#include <support/test_case.h>

#include <QDialog>
#include <QMenu>
#include <QMouseEvent>

using Vela::Test::RecordingTool;
using Vela::Test::ToolScreen;
using namespace Vela::UiBase;

/// Which tool gets what, which cursor is seen, and how operations end.
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
  void primaryToolWaitsForADragThatGoesOn();
  void toolLiesOnOneStackOnly();
  void operationEndsWithItsMouse_data();
  void operationEndsWithItsMouse();
  void viewMayGoDuringAnOperation();
  void movingTheMouseLeavesTheFocus();
};

void ToolRoutingTest::inputReachesTheRightTool_data() {
  QTest::addColumn<QString>("script");
  QTest::addColumn<QString>("told");
  const auto row = [](const char* name, const char* script, const char* told) {
    QTest::newRow(name) << QString::fromLatin1(script) << QString::fromLatin1(told);
  };
  row("left drag", "L+ mv L-", "left:press left:move left:release left:end");
  row("middle drag", "M+ mv M-", "middle:press middle:move middle:release middle:end");
  row("right drag", "R+ mv R-", "right:press right:move right:release right:end");
  row("right click opens the menu", "R+ R-", "menu");
  row("no menu after a drag, also one that was ended", "R+ mv L+ L- R-",
      "right:press right:move right:end left:press left:release left:end");
  row("hover", "mv", "left:move");
  row("right press ends left drag", "L+ R+ mv L- R-",
      "left:press left:end right:press right:move right:release right:release right:end");
  row("left press ends right drag", "R+ mv L+ mv L- R-",
      "right:press right:move right:end left:press left:move left:release left:end");
  row("middle press ends left drag", "L+ M+ mv M- L-",
      "left:press left:end middle:press middle:move middle:release middle:end");
  row("release of another button", "M+ R+ R-", "middle:press middle:end menu");
  row("any release drops the right press", "R+ L+ L- mv R-", "left:press left:release left:end right:move");
  row("no menu in the middle of an operation", "R+ L+ R- mv L-",
      "left:press left:release left:move left:release left:end");
  row("operations that begin by themselves take turns", "M+ begin key M-",
      "middle:press middle:end left:key left:keyup right:release right:end");
  row("wheel", "wh", "left:wheel wheel:wheel");
  row("no wheel during a drag", "L+ wh L-", "left:press left:release left:end");
  row("keys go to the left tool, also during a drag", "key M+ key M-",
      "left:key left:keyup middle:press left:key left:keyup middle:release middle:end");
  row("double click presses once", "LL", "left:press left:release left:end left:double");
  row("right double click", "RR", "menu right:double");
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
  struct Tool : RecordingTool {
    using RecordingTool::RecordingTool;
    QPointF way;
    bool mouseMove(QMouseEvent* event) override {
      way = event->position() - pressEvent().position();
      return RecordingTool::mouseMove(event);
    }
  };
  ToolScreen screen;
  const auto tool = std::make_shared<Tool>("drag", screen.journal, screen.view);
  screen.controller->pushTool(RightButton, tool);
  screen.play("mv R+ mv");
  QCOMPARE(tool->way, QPointF(7, 11));
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
  for (const char* script : {"L+ L- pop", "L+ mv pop L-", "M+ pop M-", "M+ clear M-", "M+ reset M- reset pop",
                             "gone", "R+ mv gone R-"})
    QTest::newRow(script) << QString::fromLatin1(script);
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

void ToolRoutingTest::primaryToolWaitsForADragThatGoesOn() {
  ToolScreen screen;
  const auto third = screen.makeTool("third", Qt::CrossCursor, Qt::CrossCursor);
  screen.play("M+");
  screen.controller->pushTool(LeftButton, third);
  QVERIFY(third->isSuspended() && screen.tool("middle")->isOperating());
  screen.controller->popTool(LeftButton);
  QVERIFY(screen.tool("left")->isSuspended() && screen.tool("middle")->isOperating());
  screen.play("M-");
  QVERIFY(screen.tool("left")->isActive());
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

void ToolRoutingTest::operationEndsWithItsMouse_data() {
  QTest::addColumn<QString>("loss");
  for (const char* loss :
       {"L? R? M? mv", "focus", "dialog", "popup", "hide", "cover", "disable", "deactivate", "cancel"})
    QTest::newRow(loss) << QString::fromLatin1(loss);
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

void ToolRoutingTest::viewMayGoDuringAnOperation() {
  for (const char* end : {"close", "delete", "controller"}) {
    ToolScreen screen;
    const auto left = screen.tool("left");
    screen.on("close", [&] { screen.view->close(); });
    screen.on("delete", [&] { delete screen.view; });
    screen.on("controller", [&] { delete screen.controller; });
    screen.play(QStringLiteral("L+ ") + end);
    Vela::Test::settle();
    QVERIFY(!left->isOperating() && !left->getDelegate() && left->getView() == screen.view);
    QVERIFY(!screen.view || screen.cursor() == Qt::ArrowCursor);
  }
}

void ToolRoutingTest::movingTheMouseLeavesTheFocus() {
  ToolScreen screen;
  screen.edit->setFocus();
  screen.play("mv mv wh");
  QVERIFY(screen.edit->hasFocus());
  QTest::keyClicks(&screen.window, "text");
}

VELA_TEST_MAIN(ToolRoutingTest)
#include "tool_routing_test.moc"
