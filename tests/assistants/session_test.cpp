// SPDX-License-Identifier: MIT
#include <support/input.h>
#include <support/rows.h>
#include <support/test_case.h>
#include <ui_base/assistants/session_recorder.h>
#include <ui_base/assistants/session_replay.h>
#include <ui_base/assistants/session_subject.h>
#include <ui_base/commands/command_group.h>
#include <ui_base/commands/run_log.h>
#include <ui_base/tools/interactive_tool.h>
#include <ui_base/tools/operation_log.h>
#include <ui_base/views/base_view.h>

#include <QApplication>
#include <QDialog>
#include <QRandomGenerator>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTimer>
#include <QUrl>

#include <commands/commands_fixture.h>

using namespace Vela::UiBase;

namespace {

class AddCommand : public TestCommand {
public:
  using TestCommand::TestCommand;

  QVariantMap inputs() const override { return used; }
  bool setInputs(const QVariantMap& inputs) override {
    given = inputs;
    return inputs.isEmpty() || inputs.contains("by");
  }
  bool needsInputs() const override { return true; }
  bool onExecute(bool checked) override {
    used = std::exchange(given, {});
    return TestCommand::onExecute(checked);
  }

  QVariantMap given;
  QVariantMap used;
};

class SetTool : public InteractiveTool {
public:
  SetTool(BaseView* view, int& shown) : InteractiveTool(view), m_shown(shown) {}

  bool perform(const ToolOperation& operation) override {
    if (operation.action == "set" && !operation.positions.isEmpty())
      m_shown = int(operation.positions.constFirst().x());
    return operation.action == "set";
  }

private:
  int& m_shown;
};

/// An application with a number: commands and a tool that change it.
class Counter : public SessionSubject {
public:
  Counter() {
    add->work = [this](bool) {
      number += add->used.value("by").toInt();
      controller->setGroundState("twice", {State::On, State::Keep});
      return true;
    };
    twice->setExecutionQoS(Taren::Core::NormalQoS);
    twice->work = [this](bool) {
      if (stops)
        CommandRun::current().requestStop();
      number = stops ? number : 2 * number;
      return !stops;
    };
    both->work = [this](bool) { return add->setInputs({{"by", 1}}) && add->onExecute(false); };
    ask->work = [](bool) {
      QDialog dialog;
      dialog.setWindowTitle("Sure?");
      return dialog.exec() == QDialog::Accepted;
    };
    for (CommandBase* const command : std::initializer_list<CommandBase*>{add, twice, both, ask})
      controller->addCommand(command);
    auto* const group = new CommandGroup({}, {}, "modes");
    group->addCommand(checkableCommand("a", true), 0);
    group->addCommand(checkableCommand("b"), 1);
    controller->addCommand(group);
    controller->setGroundState("twice", {State::Off, State::Keep}, "Nothing was added.");
    controller->pushTool(LeftButton, std::make_shared<SetTool>(&view, number));
  }

  QVariantMap state() const override { return {{"number", number}}; }
  CommandBase* command(const char* id) const { return controller->findCommand(id); }

  BaseView view;
  std::shared_ptr<CmdsViewController> controller = Taren::Objects::createShared<CmdsViewController>(&view);
  AddCommand* add = new AddCommand("add", controller.get());
  TestCommand* twice = new TestCommand("twice", controller.get());
  TestCommand* both = new TestCommand("both", controller.get());
  TestCommand* ask = new TestCommand("ask", controller.get());
  int number = 0;
  bool stops = false;
};

/// What a replay of a text comes to: "whole", or why not.
QString outcomeOf(const QString& text, SessionSubject& subject, CmdMgr* manager) {
  QString error;
  const auto session = Session::fromText(text, QDir::root(), &error);
  if (!session)
    return error;
  SessionReplay replay(subject);
  replay.addManager(manager);
  QSignalSpy finished(&replay, &SessionReplay::finished);
  replay.start(*session);
  if (!finished.wait())
    return "does not end";
  return finished[0][0].toBool() ? QString("whole") : finished[0][1].toString();
}

} // namespace

/// Sessions that are written, read, recorded and replayed.
class SessionTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void malformedTextIsToldWithItsLine_data() {
    const Vela::Test::Rows<QString, QString> row("text", "error");
    row("nothing", "\n# only this\n", "Line 3: The file is empty.");
    row("something else", "{}", "Line 1: This is no session");
    row("another format", "session 2", "Line 1: Sessions of the format “2”");
    row("no step", "session 1\nundo", "Line 2: A step begins with");
    row("no command", "session 1\ncommand", "Line 2: Something is missing");
    row("neither on nor off", "session 1\n\ncommand a maybe", "Line 3: “maybe” is neither");
    row("half an input", "session 1\ncommand a {\"by\":", "Line 2: “{\"by\":” is not a value in JSON.");
    row("a list", "session 1\ncommand a on [1]", "Line 2: The values do not stand in braces");
    row("half a name", "session 1\ncommand \"a", "no closing quotation mark");
    row("no button", "session 1\noperation t set elbow", "“elbow” is no button");
    row("no keys", "session 1\noperation t set left shift+", "“shift+” are no keys");
    row("no position", "session 1\noperation t set left (1, inf, 0)", "is not a position");
    row("state of nothing", "session 1\n  a = 1", "There is no step before");
    row("no state", "session 1\nstart\n  a 1", "“name = value”");
    row("two values", "session 1\nstart\n  a = 1, 2", "is not a value");
  }
  void malformedTextIsToldWithItsLine() {
    QFETCH(QString, text);
    QFETCH(QString, error);
    QString told;
    QVERIFY(!Session::fromText(text, QDir::root(), &told));
    QVERIFY2(told.contains(error), qPrintable(told));
  }

  void whatIsWrittenIsReadAgain() {
    const QString root = QDir::rootPath(); // with a drive on Windows
    const QDir folder(root + "data/scans");
    Session session;
    session.start = sessionState({{"a b", 1.5}, {"#", "“\n\""}, {"map", QVariantMap{{"in", true}}}});
    SessionStep step;
    step.command = "a \"b\"";
    step.checked = false;
    step.outcome = RunFailed;
    step.inputs = {{"files", QVariantList{QUrl::fromLocalFile(root + "data/scans/a/b.obj"),
                                          QUrl::fromLocalFile(root + "data/c.obj")}}};
    step.changes = {{"gone", QJsonValue()}};
    session.steps.append(step);
    step.kind = SessionStep::Operation;
    step.isCompared = false;
    step.outcome = RunSucceeded;
    step.operation = {
        "(", "=", Qt::RightButton, Qt::ShiftModifier | Qt::AltModifier, {{0.1F, -2, 3e-20F}}, {{"n", 7}}};
    session.steps.append(step);
    const QString text = session.toText(folder);
    QVERIFY(text.contains("\"a/b.obj\"") && text.contains("\"" + root + "data/c.obj\""));
    QString error;
    const auto read = Session::fromText(text, folder, &error);
    QVERIFY2(read, qPrintable(error));
    QCOMPARE(read->toText(folder), text);
    QCOMPARE(read->steps[0].inputs, session.steps[0].inputs);
    QCOMPARE(read->steps[1].operation.positions, step.operation.positions);
  }

  void firstDifferenceIsExplained_data() {
    const Vela::Test::Rows<QString, QString> row("steps", "outcome");
    row("as it was", "command add {\"by\":2}\n  number = 2\ncommand twice\n  number = 4\n", "whole");
    row("a tool", "operation t set left (7, 0, 0)\n  number = 7\n", "whole");
    row("because of another", "command both\n  unknown\ncommand b on\n  unknown\ncommand b on\n",
        "step 3: b is on already.");
    row("grey", "command twice\n", "step 1: twice is grey: Nothing was added.");
    row("gone", "command more\n", "step 1: there is no command more.");
    row("other inputs", "command add {\"to\":2}\n", "step 1: add does not understand its inputs.");
    row("another state", "command add {\"by\":2}\n  number = 3\n", "step 1: number is 2 and not 3.");
    row("another start", "start\n  number = 1\n", "before step 1: number is 0 and not 1.");
    row("a question", "command ask\n", "step 1: ask does not end: it asks the user (“Sure?”).");
    row("another end", "command add {\"by\":2}\n  failed\n", "step 1: add ended otherwise: Done");
    row("no tool", "operation t dance left\n", "step 1: nobody can do “dance” of t here.");
    row("stopped by the user", "command more\n  stopped\ncommand add {\"by\":1}\n  number = 1\n", "whole");
  }
  void firstDifferenceIsExplained() {
    QFETCH(QString, steps);
    QFETCH(QString, outcome);
    Counter counter;
    QTimer closer;
    connect(&closer, &QTimer::timeout, [] {
      if (QWidget* const dialog = QApplication::activeModalWidget())
        dialog->close();
    });
    closer.start(300);
    QCOMPARE(outcomeOf("session 1\n" + steps, counter, counter.controller.get()), outcome);
  }

  void whatIsRecordedIsReplayed() {
    const QTemporaryDir folder;
    const QString file = folder.filePath("counter.session");
    QStringList warnings;
    {
      Counter counter;
      SessionRecorder recorder(counter);
      recorder.addManager(counter.controller.get());
      connect(&recorder, &SessionRecorder::warned, [&](const QString& sentence) { warnings += sentence; });
      QVERIFY(!recorder.start(folder.filePath("none/x")) && !recorder.error().isEmpty());
      QVERIFY(recorder.start(file));
      const auto rest = [&recorder] { QTRY_VERIFY(recorder.isUpToDate()); };
      rest();
      counter.command("both")->trigger(); // what it sets off is no step
      rest();
      counter.command("b")->trigger(); // nor is what gives way
      OperationLog::Instance().tell({"t", "set", Qt::LeftButton, {}, {{5, 0, 0}}, {}});
      counter.number = 5;
      rest();
      counter.view.addAction(counter.add);
      counter.add->setShortcut(Qt::Key_F5);
      Vela::Test::showActive(counter.view);
      counter.command("twice")->trigger();
      counter.command("a")->trigger();                          // by the program: follows from it
      QTest::keyClick(counter.view.windowHandle(), Qt::Key_F5); // by the user, and without inputs
      rest();
      counter.stops = true;
      counter.command("twice")->trigger();
      rest();
    }
    QCOMPARE(warnings.size(), 2);
    QFile written(file);
    QVERIFY(written.open(QIODevice::ReadOnly));
    const QString text = QString::fromUtf8(written.readAll());
    QCOMPARE(text.count("\ncommand "), 5);
    QVERIFY(text.contains("  stopped\n"));
    Counter again;
    QCOMPARE(outcomeOf(text, again, again.controller.get()), QString("whole"));
    QCOMPARE(again.number, 10);
  }

  void nothingCrashesOnAnyText() {
    const auto seed = quint32(qEnvironmentVariableIntValue("VELA_FUZZ_SEED"));
    qInfo("seed %u", seed);
    QRandomGenerator random(seed);
    const QString good =
        "session 1\nstart\n  number = 0\ncommand add {\"by\":2}\n  number = 2\ncommand twice\n"
        "  number = 4\noperation t set left shift (7, 0, 0) {\"$file\":\"a\"}\ncommand b on\n";
    const QString letters = QStringLiteral("\"{}[]()=#,:\\ \n\t1e9-+ab") + QString(QChar(0)) + QChar(0xD800);
    for (int i = 0; i < 150; ++i) {
      QString text = good;
      for (int change = random.bounded(4); change >= 0; --change) {
        const qsizetype at = random.bounded(int(text.size()));
        text.replace(at, random.bounded(3), QString(letters[random.bounded(int(letters.size()))]));
      }
      Counter counter;
      QVERIFY(outcomeOf(text, counter, counter.controller.get()) != "does not end");
    }
  }

  void anythingMayDieMeanwhile() {
    QString error;
    const auto session = Session::fromText("session 1\ncommand add {\"by\":1}\ncommand twice\n", {}, &error);
    for (const int step : {1, 2}) {
      auto counter = std::make_unique<Counter>();
      auto* const replay = new SessionReplay(*counter);
      replay->addManager(counter->controller.get());
      connect(replay, &SessionReplay::stepBegan, [&](int began) {
        if (began == step)
          delete replay;
      });
      replay->start(*session);
      QTRY_COMPARE(counter->number, step - 1);
      Vela::Test::settle();
      SessionReplay orphan(*counter);
      QSignalSpy finished(&orphan, &SessionReplay::finished);
      orphan.addManager(counter->controller.get());
      orphan.start(*session);
      counter->controller->removeAllCommands();
      QVERIFY(finished.wait());
      QVERIFY(finished[0][1].toString().contains("there is no command add"));
    }
  }
};

VELA_TEST_MAIN(SessionTest)
#include "session_test.moc"
