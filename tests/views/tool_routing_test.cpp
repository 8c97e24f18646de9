// SPDX-License-Identifier: MIT
#include "tool_screen.h"

#include <support/rows.h>
#include <ui_base/commands/command_base.h>

using namespace Vela::Test;
using namespace Vela::UiBase;

namespace {

/// Takes some input while it executes, which a key is pressed in. Words of the screen begin it ("name+"), end
/// it ("name-"), trigger it ("name!") and take it away ("name/").
class InputCommand : public CommandBase, public InputTaker<ViewResponder> {
  Q_OBJECT
  COMMAND_ID(InputCommand)

public:
  InputCommand(ToolScreen& screen, const QString& name, const QStringList& input)
      : CommandBase(screen.controller), m_screen(screen) {
    hear = [&screen, name, input](const QString& heard) {
      if (input.contains(heard))
        screen.tell(name + ':' + heard);
      return input.contains(heard);
    };
    screen.controller->addCommand(this);
    screen.on(name + '+', [&screen, this] { screen.controller->commandBegan(this); });
    screen.on(name + '-', [&screen, this] { screen.controller->commandEnded(this); });
    screen.on(name + '!', [this] { trigger(); });
    screen.on(name + '/', [&screen, held = shared_from_this()] { screen.controller->removeCommand(&*held); });
  }
  bool onExecuteAsync(bool) override {
    m_screen.play("key");
    return true;
  }

private:
  ToolScreen& m_screen;
};

} // namespace

/// Which command or tool gets what, which cursor is seen, and how operations end.
class ToolRoutingTest : public TestCase {
  Q_OBJECT

private Q_SLOTS:
  void inputReachesTheRightTool_data() {
    const Rows<QString, QString> row("script", "told");
    row("right click opens the menu", "R+ R-", "behind menu");
    row("right press ends left drag", "L+ R+ mv L- R-",
        "L:press L:end behind R:press R:move R:release behind R:release R:end");
    row("release of another button", "M+ R+ R-", "M:press M:end behind menu");
    row("any release drops the right press", "R+ L+ L- mv R-",
        "behind L:press L:release L:end R:move behind behind");
    row("no menu in the middle of an operation", "R+ L+ R- mv L-",
        "behind L:press L:release behind L:move L:release L:end");
    row("operations take turns", "M+ wake start key M- end",
        "M:press M:end L:key behind L:keyup behind L:release behind L:end");
    row("no wheel during a drag", "wheel L+ wheel L-",
        "L:wheel W:wheel behind L:press behind L:release L:end");
    row("double click ends a drag", "R+ mv L2 R-",
        "behind R:press R:move R:end L:press L:release L:end L:double behind behind behind");
    row("press is replayed in its place", "mv R+ mv at? R-",
        "L:move behind R:press R:move QPointF(24,32) R:release R:end");
    row("double click in another's operation", "M+ M- start soon M+", "M:press M:release M:end L:end behind");
    row("taken by the tool", "take wheel key", "L:wheel L:key L:keyup");
    row("moving the mouse leaves the focus", "edit mv wheel focus?", "L:move L:wheel W:wheel behind edit");
    // The view has no cursor of its own.
    row("popped while it operates", "cursor? L+ mv pop cursor?",
        "Qt::OpenHandCursor L:press L:move L:end Qt::WaitCursor");
    row("cleared while one operates", "M+ clear cursor?", "M:press M:end Qt::WaitCursor");
    row("waits below the top", "push hand wake start end waits?", "L:end waits");
    row("changes while it is seen", "push hand cursor?", "Qt::PointingHandCursor");
    row("changes while it operates", "push L+ hand cursor? L-", "Qt::PointingHandCursor");
    row("changes by hand", "point cursor?", "Qt::ArrowCursor");
    row("taken away by hand", "off cursor? cover off cursor? uncover off cursor?",
        "Qt::WaitCursor Qt::WaitCursor Qt::ArrowCursor");
    row("changed by the application", "own L+ L- cursor? detach cursor?",
        "L:press L:release L:end Qt::ForbiddenCursor Qt::WaitCursor");
    row("behind another view", "cover cursor? own uncover cursor? detach cursor?",
        "Qt::WaitCursor Qt::OpenHandCursor Qt::ForbiddenCursor");
    row("in another view", "own push hand move cursor? moved?", "Qt::WaitCursor Qt::PointingHandCursor");
    row("waits for another button", "R+ mv push hand cursor? R- cursor? pop cursor?",
        "behind R:press R:move Qt::ArrowCursor R:release R:end Qt::PointingHandCursor Qt::OpenHandCursor");

    row("command takes all", "L+ all+ L- L+ mv L- wheel key L2",
        "L:press L:end all:release all:press all:move all:release all:wheel all:key all:keyup all:press "
        "all:release all:double behind");
    row("command takes releases", "second+ L+ L-", "L:press second:release L:end");
    row("command that runs", "first! key", "first:key first:keyup L:key behind L:keyup behind");
    row("runs in another", "first+ second! second- key", "first:key first:keyup first:key first:keyup");
    row("began twice", "first+ second+ second+ key second- key",
        "second:key second:keyup first:key first:keyup");
    row("ended out of order", "first+ second+ first- key second/ key",
        "second:key second:keyup L:key behind L:keyup behind");
  }

  void inputReachesTheRightTool() {
    QFETCH(QString, script);
    ToolScreen screen;
    screen.window.setCursor(Qt::WaitCursor);
    screen.on("start", [&] { screen.left->startOperation(); });
    screen.on("end", [&] { screen.left->endOperation(); });
    screen.on("wake", [&] { screen.left->resume(); });
    screen.on("waits?", [&] { screen.tell(screen.left->isSuspended() ? "waits" : "is back"); });
    const auto over = std::make_shared<RecordingTool>("over", screen.view); // without an idle cursor
    screen.on("push", [&] { screen.controller->pushTool(LeftButton, over); });
    screen.on("hand", [&] { over->setOperatingCursor(Qt::PointingHandCursor); });
    screen.on("pop", [&] { screen.controller->popTool(LeftButton); });
    screen.on("point", [&] { screen.controller->toolCursorChange(screen.left.get()); });
    screen.on("off", [&] { screen.controller->toolDeactivated(screen.left.get()); });
    screen.on("own", [&] { screen.view->setCursor(Qt::ForbiddenCursor); });
    screen.on("take", [&] {
      for (const QString input : {"L:wheel", "L:key", "L:keyup"})
        screen.on(input, [] {});
    });
    screen.on("cover", [&] {
      screen.controller->presentViewController(new BaseViewController(new BaseView), FromTop);
    });
    screen.on("uncover",
              [&] { screen.view->presentation().constLast().controller->dismissViewController(); });
    BaseView other;
    screen.on("move", [&] { (other.setViewController(screen.controller), other.show()); });
    screen.on("moved?", [&] { screen.tell(QDebug::toString(other.cursor().shape())); });
    screen.on("clear", [&] { screen.controller->clearTools(); });
    screen.on("detach", [&] { screen.view->setViewController(nullptr); });
    screen.on("focus?", [&] { screen.tell(screen.edit->hasFocus() ? "edit" : "view"); });
    screen.on("cursor?", [&] { screen.tell(QDebug::toString(screen.view->cursor().shape())); });
    screen.on("at?", [&] { screen.tell(QDebug::toString(screen.right->pressEvent().position())); });
    new InputCommand(screen, "all", {"press", "move", "release", "double", "wheel", "key", "keyup"});
    new InputCommand(screen, "first", {"key", "keyup"});
    new InputCommand(screen, "second", {"release", "key", "keyup"});
    screen.play(script);
    QTEST(screen.told(), "told");
  }

  void operationEndsWithItsMouse_data() {
    const Rows<QString> row("loss");
    for (const char* loss : {"lost mv", "edit", "dialog", "menu", "disable", "hide", "deactivate"})
      row(loss, loss);
  }

  void operationEndsWithItsMouse() {
    QFETCH(QString, loss);
    for (const QString script : {"L2", "decline L2", "L+ loss", "R+ mv loss", "R+ loss"}) {
      ToolScreen screen;
      QDialog dialog(&screen.window);
      dialog.setAttribute(Qt::WA_ShowWithoutActivating); // blocked all the same
      QWidget other;
      QMenu menu(screen.view);
      menu.addAction("entry");
      screen.on("dialog", [&] { dialog.open(); });
      screen.on("menu", [&] { menu.popup(screen.view->mapToGlobal(QPoint(5, 5))); });
      screen.on("disable", [&] { screen.view->setEnabled(false); });
      screen.on("hide", [&] { screen.view->hide(); });
      screen.on("deactivate", [&] { showActive(other); });
      screen.on("decline", [&] { screen.takesWords = false; });
      screen.on("loss", [&] { screen.play(loss); });
      screen.on("L:double", [&] { screen.play(loss); });
      if (loss == "dialog" || loss == "deactivate" || loss == "disable") { // without the focus as well
        screen.view->setFocusPolicy(Qt::NoFocus);
        screen.play("edit");
      }
      screen.play(script);
      QVERIFY(!screen.controller->getOperatingTool());
      dialog.close();
      menu.close();
      screen.view->setEnabled(true);
      screen.view->show();
      holdUnheard(Qt::RightButton);
      screen.told();
      screen.play("mv lost L+");
      const QString told = screen.told(); // what a right press started does not come back
      QVERIFY2(told.endsWith("L:press") && !told.contains("R:press"), qPrintable(told));
    }
  }
};

VELA_TEST_MAIN(ToolRoutingTest)
#include "tool_routing_test.moc"
