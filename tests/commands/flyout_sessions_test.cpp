// SPDX-License-Identifier: MIT
#include "execution_fixture.h"

#include <support/rows.h>
#include <support/test_case.h>
#include <ui_base/commands/flyout_command.h>
#include <ui_base/popups/flyout_base.h>
#include <ui_base/toolbars/tool_bar.h>
#include <ui_base/toolbars/tool_button_with_widget_menu.h>

using namespace Vela::UiBase;

namespace {

/// A command with a panel, which asks for the contexts that the test gives it.
class PanelCommand : public FlyoutCommand {
  Q_OBJECT

public:
  PanelCommand(QString commandIdentifier, FlyoutBase* itsPanel, CmdsViewController* controller)
      : FlyoutCommand(itsPanel, controller), id(std::move(commandIdentifier)) {
    setText(id);
    itsPanel->resize(itsPanel->sizeHint());
    itsPanel->hide();
  }
  QString commandId() const override { return id; }
  bool onExecuteAsync(bool) override { return true; }
  void onReset() override { failures += "reset"; }
  void onESCKeyReleased() override { failures += "escape"; }

  QString id;
  std::function<void()> atBegin;
  CommandContext beginContext;
  QStringList failures; // and what else it was asked for

protected:
  CommandContext getBeginCommandContext() override {
    if (atBegin)
      atBegin();
    return beginContext;
  }
  void onExecutionFailed(const QString& reason) override { failures += reason; }
};

/// Counts what a command tells, and fails where it is told to.
class Heard : public CommandStateProtocol {
public:
  void commandBegan(CommandBase*) override {
    ++began;
    if (atBegin)
      atBegin();
    if (fails)
      throw std::runtime_error("observer");
  }
  void commandEnded(CommandBase*) override { ++ended; }

  int began = 0;
  int ended = 0;
  bool fails = false;
  std::function<void()> atBegin;
};

struct Session {
  QPointer<FlyoutBase> panel;
  QPointer<PanelCommand> command;
  QPointer<QWidget> button; // when it is hosted
  std::shared_ptr<Heard> heard = std::make_shared<Heard>();
};

/// A view with two flyout commands, a command that runs and one that all of them disable.
struct Stage {
  Stage(bool checkable, bool hosted) {
    auto* const column = new QVBoxLayout(&window);
    column->addWidget(view = new BaseView);
    controllerObject = controller = new CmdsViewController(view);
    bar = new ToolBar(view, Qt::TopToolBarArea);
    controller->addCommand(other = new TestCommand("other"));
    auto* const run = new TestCommand("run", controller);
    run->setExecutionQoS(Taren::Core::NormalQoS);
    run->executionContext = {{"other", {State::Off, State::Keep}}};
    controller->addCommand(run);
    for (Session* const session : {&first, &second}) {
      const QString name = session == &first ? "first" : "second";
      session->panel = new FlyoutBase("Panel", new QSpinBox, nullptr, true, true, true, true, view);
      session->command = new PanelCommand(name, session->panel, controller);
      session->command->beginContext = {{"other", {State::Off, State::Keep}},
                                        {name, {State::Off, State::Off}}};
      session->command->setCheckable(checkable);
      session->command->addObserver(session->heard, false);
      controller->addCommand(session->command);
      if (hosted)
        session->button = bar->AddAction(session->command, session->panel);
    }
    auto* const elsewhere = new TestCommand("elsewhere");
    controller->addCommand(elsewhere);
    elsewhereButton = bar->AddAction(elsewhere);
    window.resize(700, 500);
    window.show();
    window.activateWindow();
    if (!QTest::qWaitForWindowActive(&window))
      qFatal("the window does not become active");
    bar->ShowMe();
    drain();
  }

  void drain() {
    Vela::Test::settle();
    while (dispatcher.step(Taren::Core::MainThreadQoS))
      Vela::Test::settle();
  }
  static void click(QWidget& widget) {
    QWidget& window = *widget.window();
    QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {},
                      widget.mapTo(&window, widget.rect().center()));
  }
  CmdMgr* manager() const { return controllerObject ? controller : nullptr; }
  void finishRun() {
    while (dispatcher.step(Taren::Core::NormalQoS))
      drain();
  }
  Taren::Core::SteppedDispatcher dispatcher;
  Taren::Core::ScopedDispatcher installed{dispatcher};
  QWidget window;
  QPointer<BaseView> view;
  CmdsViewController* controller;
  QPointer<BaseViewController> controllerObject;
  QPointer<ToolBar> bar;
  ToolButton* elsewhereButton;
  QPointer<TestCommand> other;
  Session first;
  Session second;
};

using End = void (*)(Stage&, Session&);
struct Way {
  const char* name;
  End end;
  bool needsButton = false;
};
constexpr Way ways[] = {
    {"again",
     [](Stage&, Session& s) {
       s.command->isCheckable() ? s.command->trigger() : s.command->onExitCommand();
     }},
    {"close me", [](Stage&, Session& s) { s.panel->CloseMe(); }},
    {"cancel", [](Stage&, Session& s) { s.panel->Cancel(); }},
    {"escape",
     [](Stage&, Session& s) {
       s.panel->setFocus();
       QTest::keyClick(s.panel->window()->windowHandle(), Qt::Key_Escape);
     }},
    {"hide", [](Stage&, Session& s) { s.panel->hide(); }, true}, // another one is a plain widget
    {"close", [](Stage&, Session& s) { s.panel->close(); }, true},
    {"its button", [](Stage&, Session& s) { Stage::click(*s.button); }, true},
    {"another button", [](Stage& stage, Session&) { Stage::click(*stage.elsewhereButton); }, true},
    {"close its window", [](Stage&, Session& s) { s.panel->window()->windowHandle()->close(); }},
    {"delete button", [](Stage&, Session& s) { delete s.button; }, true},
    {"delete bar", [](Stage& stage, Session&) { delete stage.bar; }, true},
    {"delete manager", [](Stage& stage, Session&) { delete stage.controllerObject; }},
    {"finalize", [](Stage&, Session& s) { s.command->onFinalize(); }},
    {"remove", [](Stage& stage, Session& s) { stage.controller->removeCommand(s.command); }},
    {"remove all", [](Stage& stage, Session&) { stage.controller->removeAllCommands(); }},
    {"delete panel", [](Stage&, Session& s) { delete s.panel; }},
    {"delete view", [](Stage& stage, Session&) { delete stage.view; }},
};

enum Circumstances { Checkable = 1, Hosted = 2, Two = 4, Running = 8 };

bool isOpen(const Session& session) { return session.heard->began > session.heard->ended; }

} // namespace

/// A flyout command from begin to end, whatever ends it and whatever goes on meanwhile.
class FlyoutSessionsTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void everyWayEndsItOnce_data() {
    const Vela::Test::Rows<int, const Way*> row("circumstances", "way");
    for (const Way& way : ways) {
      // Each pair of circumstances meets.
      for (const int bits : {0b0000, 0b0111, 0b1011, 0b1101, 0b1110}) {
        const QByteArray name = QByteArray(bits & Checkable ? "checkable" : "plain") +
                                (bits & Hosted ? ", hosted" : "") + (bits & Two ? ", two" : "") +
                                (bits & Running ? ", while one runs" : "") + ", ";
        if (bits & Hosted || !way.needsButton)
          row(name + way.name, bits, &way);
      }
    }
  }

  void everyWayEndsItOnce() {
    QFETCH(int, circumstances);
    QFETCH(const Way*, way);
    const bool checkable = circumstances & Checkable;
    const bool running = circumstances & Running;
    Stage stage(checkable, circumstances & Hosted);
    const auto kept = stage.other->shared_from_this();
    if (running)
      stage.controller->findCommand("run")->onExecute();
    for (Session* const session : {&stage.first, &stage.second}) {
      if (session == &stage.first || circumstances & Two)
        session->command->trigger();
      stage.drain();
    }
    const auto check = [&](int runs) {
      int open = runs;
      for (const Session* const session : {&stage.first, &stage.second}) {
        QVERIFY(session->heard->began <= 1);
        const bool isShown = session->panel && session->panel->isVisible();
        QCOMPARE(isShown, isOpen(*session));
        if (session->command) {
          QCOMPARE(session->command->isActive(), isShown);
          QCOMPARE(session->command->isChecked(), isShown && checkable);
          QVERIFY(session->command->isEnabled());
        }
        open += isShown;
      }
      if (const CmdMgr* const manager = stage.manager())
        QCOMPARE(manager->contextStack().size(), open);
      if (stage.manager() && stage.manager()->findCommand("other"))
        QCOMPARE(kept->isEnabled(), open == 0);
    };
    check(running);
    Session& ended = isOpen(stage.first) ? stage.first : stage.second;
    way->end(stage, ended);
    stage.drain();
    if (!stage.view)
      return; // nobody is left to tell
    QCOMPARE(ended.heard->ended, 1);
    check(running);
    stage.finishRun();
    check(0);
  }

  void whatThrowsLeavesNothingHalfBegun() {
    Stage stage(true, false);
    PanelCommand& command = *stage.first.command;
    command.atBegin = [] { throw std::runtime_error("context"); };
    command.trigger();
    QVERIFY(!command.isActive() && !command.isChecked() && !stage.first.panel->isVisible());
    command.atBegin = [&] { command.onFinalize(); };
    command.trigger();
    QVERIFY(!command.isActive() && stage.controller->contextStack().isEmpty());
    command.atBegin = nullptr;
    QCOMPARE(stage.first.heard->ended, 0); // as nobody has heard of a beginning
    stage.first.heard->atBegin = [&] { command.onFinalize(); };
    command.setChecked(false);
    command.setChecked(true);
    QCOMPARE(stage.first.heard->ended, 1);
    QVERIFY(!stage.controller->runningCommand()); // which hears after it
    stage.first.heard->atBegin = nullptr;
    stage.first.heard->fails = true;
    command.setChecked(false);
    command.setChecked(true);
    QCOMPARE(command.failures, (QStringList{"context", "observer"}));
    QVERIFY(command.isActive() && stage.first.panel->isVisible());
    QVERIFY(stage.controller->runningCommand()); // which hears all the same
    command.onFinalize();
    QVERIFY(stage.controller->contextStack().isEmpty() && !stage.first.panel->isVisible());
  }

  void thePanelAsksItsCommand() {
    Stage stage(false, false);
    PanelCommand& command = *stage.first.command;
    FlyoutBase& panel = *stage.first.panel;
    QWidget* const values = panel.MainPanel();
    command.trigger();
    panel.Reset();
    panel.Apply();
    stage.drain();
    QVERIFY(panel.IsBusy());
    stage.finishRun();
    QVERIFY(!panel.IsBusy());
    for (const bool moves : {false, true}) {
      values->setFocus();
      command.setEnabled(false);
      QVERIFY(!panel.isEnabled() && !values->hasFocus());
      if (moves)
        stage.view->setFocus();
      command.setEnabled(true);
      QCOMPARE(values->hasFocus(), !moves);
    }
    values->setFocus();
    QTest::keyClick(panel.window()->windowHandle(), Qt::Key_Escape);
    QCOMPARE(command.failures, (QStringList{"reset", "escape"}));
  }
};

VELA_TEST_MAIN(FlyoutSessionsTest)
#include "flyout_sessions_test.moc"
