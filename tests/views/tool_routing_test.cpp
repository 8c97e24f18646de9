// SPDX-License-Identifier: MIT
#include "tool_screen.h"

#include <support/test_case.h>
#include <ui_base/commands/command_base.h>

#include <QDialog>
#include <QMenu>
#include <QMetaEnum>

using namespace Vela::Test;
using namespace Vela::UiBase;

namespace {

/// Takes some input while it executes, which a key is pressed in. Words of the screen begin it ("name+"), end
/// it ("name-"), trigger it ("name!") and take it away ("name/").
class InputCommand : public CommandBase, public InputTaker<ViewResponder> {
  Q_OBJECT
  COMMAND_ID(InputCommand)

public:
  InputCommand(ToolScreen& screen, const QString& name, const QString& input)
      : CommandBase(screen.controller), m_screen(screen), m_name(name), m_input(input.split(' ')) {
    screen.controller->addCommand(this);
    screen.on(name + '+', [&screen, this] { screen.controller->commandBegan(this); });
    screen.on(name + '-', [&screen, this] { screen.controller->commandEnded(this); });
    screen.on(name + '!', [this] { trigger(); });
    screen.on(name + '/', [&screen, this] { screen.controller->removeCommand(this); });
  }

protected:
  bool onExecuteAsync(bool) override {
    m_screen.play("key");
    return true;
  }
  bool takes(const QString& input) override {
    const bool taken = m_input.contains(input);
    if (taken)
      m_screen.tell(m_name + ':' + input);
    return taken;
  }

private:
  ToolScreen& m_screen;
  const QString m_name;
  const QStringList m_input;
};

} // namespace

/// Which command or tool gets what, which cursor is seen, and how operations end.
class ToolRoutingTest : public TestCase {
  Q_OBJECT

private Q_SLOTS:
  void inputReachesTheRightTool_data();
  void inputReachesTheRightTool();
  void operationEndsWithItsMouse_data();
  void operationEndsWithItsMouse();
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
  row("operations that begin by themselves take turns", "M+ start key M- end",
      "middle:press middle:end left:key left:keyup right:release right:end");
  row("no wheel during a drag", "wheel L+ wheel L-",
      "left:wheel wheel:wheel left:press left:release left:end");
  row("double click presses once", "L2", "left:press left:release left:end left:double");
  row("double click ends another drag", "R+ mv L2 R-",
      "right:press right:move right:end left:press left:release left:end left:double");
  row("held-back press is replayed where it was", "mv R+ mv at? R-",
      "left:move right:press right:move 24,32 right:release right:end");
  row("moving the mouse leaves the focus", "edit mv wheel focus?", "left:move left:wheel wheel:wheel edit");
  // The view has no cursor of its own.
  row("popped while it operates", "cursor? L+ mv pop cursor?",
      "OpenHandCursor left:press left:move left:end WaitCursor");
  row("cleared while one operates", "M+ clear cursor?", "middle:press middle:end WaitCursor");
  row("without a controller", "R+ mv detach cursor?", "right:press right:move right:end WaitCursor");
  row("waits for another button", "R+ mv push cursor? R- cursor? pop cursor?",
      "right:press right:move ArrowCursor right:release right:end OpenHandCursor OpenHandCursor");

  row("command takes all", "L+ all+ L- L+ mv L- wheel key L2",
      "left:press left:end all:release all:press all:move all:release all:wheel all:key all:keyup all:press "
      "all:release all:double");
  row("command takes presses", "first+ L+ mv L- wheel", "first:press left:move left:wheel wheel:wheel");
  row("command takes releases", "second+ L+ L-", "left:press second:release left:end");
  row("command that runs", "first! key", "first:key first:keyup left:key left:keyup");
  row("command runs in another that began", "first+ second! second- key",
      "first:key first:keyup first:key first:keyup");
  row("command began twice", "first+ second+ second+ key second- key",
      "second:key second:keyup first:key first:keyup");
  row("command ends before a later one", "first+ second+ first- key second/ key",
      "second:key second:keyup left:key left:keyup");
}

void ToolRoutingTest::inputReachesTheRightTool() {
  QFETCH(QString, script);
  ToolScreen screen;
  screen.window.setCursor(Qt::WaitCursor);
  screen.on("start", [&] { screen.right->startOperation(); });
  screen.on("end", [&] { screen.right->endOperation(); });
  screen.on("push", [&] { screen.controller->pushTool(LeftButton, screen.makeTool("over")); });
  screen.on("pop", [&] { screen.controller->popTool(LeftButton); });
  screen.on("clear", [&] { screen.controller->clearTools(); });
  screen.on("detach", [&] { screen.view->setViewController(nullptr); });
  screen.on("focus?", [&] { screen.tell(screen.edit->hasFocus() ? "edit" : "view"); });
  screen.on("cursor?", [&] {
    screen.tell(QMetaEnum::fromType<Qt::CursorShape>().valueToKey(screen.view->cursor().shape()));
  });
  screen.on("at?", [&] {
    const QPoint at = screen.right->pressEvent().position().toPoint();
    screen.tell(QString("%1,%2").arg(at.x()).arg(at.y()));
  });
  new InputCommand(screen, "all", "press move release double wheel key keyup");
  new InputCommand(screen, "first", "press key keyup");
  new InputCommand(screen, "second", "release key keyup");
  screen.play(script);
  QTEST(screen.told(), "told");
}

void ToolRoutingTest::operationEndsWithItsMouse_data() {
  QTest::addColumn<QString>("loss");
  for (const char* loss :
       {"lost mv", "edit", "dialog", "menu", "grab", "disable", "hide", "cover", "deactivate"})
    QTest::newRow(loss) << QString(loss);
}

void ToolRoutingTest::operationEndsWithItsMouse() {
  QFETCH(QString, loss);
  for (const QString script : {"L2", "L+ loss", "R+ mv loss", "R+ loss"}) {
    if (loss == "grab" && script != "L2")
      continue;
    ToolScreen screen;
    QDialog dialog(&screen.window);
    dialog.setModal(true);
    QMenu menu(screen.view);
    menu.addAction("entry");
    QWidget other;
    QPointer<BaseViewController> cover;
    screen.on("dialog", [&] { dialog.show(); });
    screen.on("menu", [&] { menu.popup(screen.view->mapToGlobal(QPoint(5, 5))); });
    screen.on("grab", [&] { dialog.grabMouse(); });
    screen.on("disable", [&] { screen.view->setEnabled(false); });
    screen.on("hide", [&] { screen.view->hide(); });
    screen.on("deactivate", [&] { showActive(other); });
    screen.on("cover", [&] {
      cover = new BaseViewController(new BaseView);
      screen.controller->presentViewController(cover, NoTransition);
    });
    screen.on("loss", [&] { screen.play(loss); });
    screen.on("left:double", [&] { screen.play(loss); });
    if (loss == "dialog" || loss == "deactivate") { // which an unfocused view loses to as well
      screen.view->setFocusPolicy(Qt::NoFocus);
      screen.play("edit");
    }
    screen.play(script);
    QTRY_VERIFY(!screen.controller->getOperatingTool());
    dialog.releaseMouse();
    dialog.close();
    menu.close();
    if (cover)
      cover->dismissViewController();
    screen.view->setEnabled(true);
    screen.view->show();
    screen.holdUnheard(Qt::RightButton);
    screen.told();
    screen.play("mv lost L+");
    const QString told = screen.told(); // what a right press started does not come back
    QVERIFY2(told.endsWith("left:press") && !told.contains("right:press"), qPrintable(told));
  }
}

VELA_TEST_MAIN(ToolRoutingTest)
#include "tool_routing_test.moc"
