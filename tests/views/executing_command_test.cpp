// SPDX-License-Identifier: MIT
#include "tool_screen.h"

#include <support/test_case.h>
#include <ui_base/commands/command_base.h>

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

/// Commands that take the input of a view while they execute, before its tools.
class ExecutingCommandTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void executingCommandComesFirst_data();
  void executingCommandComesFirst();
  void executingCommandIsTheOneThatBegan();
  void endedCommandGivesWayToTheOneBefore();
};

void ExecutingCommandTest::executingCommandComesFirst_data() {
  QTest::addColumn<QStringList>("takes");
  QTest::addColumn<QString>("script");
  QTest::addColumn<QString>("told");
  const QStringList all{"press", "move", "release", "double", "wheel", "key", "keyup"};
  const auto row = [](const QStringList& takes, const char* script, const char* told) {
    QTest::addRow("takes %s", qPrintable(takes.join(QLatin1Char(' '))))
        << takes << QString::fromLatin1(script) << QString::fromLatin1(told);
  };
  row(all, "L+ mv L- R+ mv R- wh key LL",
      "command:press command:move command:release command:press command:move command:release command:wheel "
      "command:key command:keyup command:press command:release command:double");
  row({"press"}, "L+ mv L- wh", "command:press left:move left:wheel wheel:wheel");
  row({"release"}, "L+ L-", "left:press command:release left:end");
  row({}, "L+ mv L-", "left:press left:move left:release left:end");
}

void ExecutingCommandTest::executingCommandComesFirst() {
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

void ExecutingCommandTest::executingCommandIsTheOneThatBegan() {
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

void ExecutingCommandTest::endedCommandGivesWayToTheOneBefore() {
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

VELA_TEST_MAIN(ExecutingCommandTest)
#include "executing_command_test.moc"
