// SPDX-License-Identifier: MIT
#include "execution_fixture.h"

#include <support/test_case.h>
#include <ui_base/commands/run_log.h>
#include <ui_base/commands/run_model.h>

#include <QAbstractItemModelTester>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMenu>
#include <QPushButton>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <array>
#include <cstddef>
#include <new>
#include <stdexcept>

using namespace Vela::UiBase;
using namespace std::chrono_literals;
using Taren::Core::MainThreadQoS;
using Taren::Core::NormalQoS;
using Taren::Objects::createShared;

namespace {

RunRecord newest() {
  const auto records = RunLog::Instance().records();
  return records.isEmpty() ? RunRecord() : records.constLast();
}

void busyFor(std::chrono::nanoseconds time) {
  const auto end = std::chrono::steady_clock::now() + time;
  while (std::chrono::steady_clock::now() < end) {
  }
}

/// A button and a menu that trigger a command, in a window that is shown.
class Triggers {
public:
  explicit Triggers(CommandBase& command) {
    button.addAction(&command);
    QObject::connect(&button, &QPushButton::clicked, &command, &QAction::trigger);
    menu.addAction(&command);
    button.resize(100, 40);
    button.show();
    button.activateWindow();
    shown = QTest::qWaitForWindowActive(&button);
  }

  QPushButton button;
  QMenu menu;
  bool shown = false;
};

void records(const std::function<bool(AsyncFixture&)>& work, ERunOutcome outcome,
             const QString& message = {}) {
  for (const auto qos : {MainThreadQoS, NormalQoS}) {
    AsyncFixture f;
    QString failure;
    ERunOutcome seenAtEnd = RunUnderway;
    f.command->setExecutionQoS(qos);
    f.command->failed = [&failure](const QString& reason) { failure = reason; };
    f.command->work = [&](bool) { return work(f); };
    f.log.observer->ended = [&](CommandBase*, bool) { seenAtEnd = CommandRun::current().outcome(); };
    f.command->trigger();
    f.dispatcher.runAll();
    const RunRecord record = newest();
    QCOMPARE(record.commandId, QStringLiteral("work"));
    QCOMPARE(record.outcome, outcome);
    QCOMPARE(seenAtEnd, outcome);
    QCOMPARE(record.message, message);
    QCOMPARE(failure, message);
    QVERIFY(f.command->runs().isEmpty() && CommandRun::current().isNull());
  }
}

void finds(ERunSource source, const std::function<void(Triggers&, TestCommand&)>& input) {
  RunLog::Instance().clear();
  const auto command = createShared<TestCommand>(QStringLiteral("id"));
  command->setShortcut(Qt::Key_F7);
  Triggers triggers(*command);
  QVERIFY(triggers.shown);
  input(triggers, *command);
  QTRY_COMPARE(RunLog::Instance().records().size(), 1);
  QCOMPARE(newest().source, source);
}

} // namespace

/// What is recorded of the runs of commands, and what a run offers to its work.
class RunsTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void cleanup() {
    RunLog::Instance().setCapacity(RunLog::defaultCapacity);
    RunLog::Instance().setMainThreadLimit(RunLog::defaultMainThreadLimit);
    RunLog::Instance().clear();
    QVERIFY(RunLog::Instance().runsUnderway().isEmpty());
  }

  void endIsRecorded() {
    records([](AsyncFixture&) { return true; }, RunSucceeded);
    records([](AsyncFixture&) { return false; }, RunDeclined);
    records([](AsyncFixture&) -> bool { throw std::runtime_error("no mesh"); }, RunFailed, "no mesh");
    records([](AsyncFixture&) -> bool { throw std::bad_alloc(); }, RunFailed, "There is not enough memory.");
    const auto stopped = [](const auto& then) {
      return [=](AsyncFixture& f) {
        f.command->requestStop();
        return then();
      };
    };
    records(stopped([] { return false; }), RunStopped);
    records(stopped([] { return true; }), RunSucceeded); // too late
    records(stopped([] {
              CommandRun::current().reporter().report(0.5); // throws
              return true;
            }),
            RunStopped);
  }

  void refusedAndAbandonedRunsAreRecorded() {
    AsyncFixture f;
    f.dispatcher.setRefusing(true);
    f.command->trigger();
    QCOMPARE(newest().outcome, RunRefused);
    f.dispatcher.setRefusing(false);
    alignas(TestCommand) std::array<std::byte, sizeof(TestCommand)> place{};
    auto* const unshared = new (place.data()) TestCommand(QStringLiteral("unshared"));
    unshared->setExecutionQoS(NormalQoS);
    unshared->trigger();
    QCOMPARE(newest().outcome, RunUnderway);
    unshared->~TestCommand();
    auto* const other = new (place.data()) TestCommand(QStringLiteral("other")); // at the same address
    QVERIFY(other->runs().isEmpty());
    other->~TestCommand();
    f.dispatcher.runAll();
    QCOMPARE(newest().outcome, RunAbandoned);
    QCOMPARE(newest().commandId, QStringLiteral("unshared"));
  }

  void timesAndThreadAreRecorded() {
    const auto command = createShared<TestCommand>(QStringLiteral("id"));
    command->work = [](bool) {
      busyFor(5ms);
      return true;
    };
    RunLog::Instance().setMainThreadLimit(1ms);
    command->trigger();
    const RunRecord atOnce = newest();
    QVERIFY(atOnce.duration >= 5ms && atOnce.blockedMainThread);
    QCOMPARE(atOnce.thread, Taren::Core::traceThread());
    command->setExecutionQoS(NormalQoS);
    command->trigger();
    busyFor(1ms);
    QTRY_COMPARE(newest().outcome, RunSucceeded);
    QVERIFY(newest().duration >= 5ms && newest().wait > 0ns && !newest().blockedMainThread);
    QVERIFY(newest().thread != atOnce.thread && newest().id > atOnce.id);
  }

  void sourceIsTheInputThatWasGiven() {
    const auto click = [](Triggers& t) {
      QTest::mouseClick(t.button.windowHandle(), Qt::LeftButton, {}, {10, 10});
    };
    const auto clickThat = [click](const auto& act) {
      return [=](Triggers& t, TestCommand& command) {
        t.button.disconnect();
        QObject::connect(&t.button, &QPushButton::clicked, &command, [&command, act] { act(command); });
        click(t);
      };
    };
    finds(RunByProgram, [](Triggers&, TestCommand& command) { command.trigger(); });
    finds(RunByMouse, [click](Triggers& t, TestCommand&) { click(t); });
    finds(RunByKey, [](Triggers& t, TestCommand&) { QTest::keyClick(t.button.windowHandle(), Qt::Key_F7); });
    finds(RunByMenu, [](Triggers& t, TestCommand& command) {
      t.menu.popup({10, 10});
      QTest::mouseClick(t.menu.windowHandle(), Qt::LeftButton, {}, t.menu.actionGeometry(&command).center());
    });
    finds(RunByProgram, clickThat([](TestCommand& command) {
            QTimer::singleShot(0, &command, &QAction::trigger); // after the click
          }));
    finds(RunByProgram, clickThat([](TestCommand& command) {
            Vela::Test::settle(); // in a loop that the click began
            command.trigger();
          }));
  }

  void eachRunIsStoppedByItself() {
    AsyncFixture f;
    QList<quint64> stopped;
    f.command->work = [&stopped](bool) {
      const CommandRun run = CommandRun::current();
      if (run.stopToken().stop_requested())
        stopped += run.id();
      run.setProgress(2);
      return true;
    };
    f.command->trigger();
    f.command->trigger();
    const QList<CommandRun> runs = f.command->runs();
    QCOMPARE(runs.size(), 2);
    QVERIFY(!runs[1].canBeStopped() && runs[1].progress() < 0 && runs[1].text() == QLatin1String("work"));
    QVERIFY(runs[1].requestStop() && !runs[1].requestStop());
    f.dispatcher.runAll();
    QCOMPARE(stopped, QList<quint64>{runs[1].id()});
    QVERIFY(runs[0].canBeStopped() && !runs[0].isUnderway());
    QCOMPARE(runs[0].progress(), 1.0);
  }

  void innerRunGivesWayToTheOuterOne() {
    const auto inner = createShared<TestCommand>(QStringLiteral("inner"));
    const auto outer = createShared<TestCommand>(QStringLiteral("outer"));
    QStringList current;
    const auto note = [&current](bool) {
      current += CommandRun::current().commandId();
      return true;
    };
    inner->work = note;
    outer->work = [&](bool checked) { return note(checked) && inner->onExecute() && note(checked); };
    outer->trigger();
    QCOMPARE(current, QString("outer inner outer").split(' '));
    QVERIFY(CommandRun::current().isNull());
  }

  void modelFollowsTheLog() {
    AsyncFixture f;
    RunModel model;
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
    RunLog::Instance().setCapacity(2);
    f.command->trigger();
    QCOMPARE(model.index(0, RunModel::CommandColumn).data().toString(), QStringLiteral("work"));
    QCOMPARE(model.index(0, RunModel::OutcomeColumn).data().toString(), QStringLiteral("Running"));
    QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
    f.dispatcher.runAll();
    QCOMPARE(changed.size(), 1);
    QCOMPARE(model.index(0, RunModel::OutcomeColumn).data().toString(), QStringLiteral("Done"));
    f.other->trigger();
    f.other->trigger();
    QCOMPARE(model.rowCount(), 2); // the oldest went
    QCOMPARE(model.index(0, RunModel::CommandColumn).data().toString(), QStringLiteral("other"));
    QCOMPARE(RunLog::Instance().records().size(), 2);
    const auto record = model.index(1, 0).data(RunModel::RecordRole).value<RunRecord>();
    QCOMPARE(record.id, newest().id);
    RunLog::Instance().clear();
    QCOMPARE(model.rowCount(), 0);
  }

  void runsStandInTheTrace() {
    const auto command = createShared<TestCommand>(QStringLiteral("save \"ä\\b\""));
    command->failed = [](const QString&) {};
    command->work = [](bool) -> bool { throw std::runtime_error("disk full"); };
    command->trigger();
    const QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("trace.json")));
    QVERIFY(service().Kernel().writeTrace(file.fileName()));
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QJsonArray events = QJsonDocument::fromJson(file.readAll())["traceEvents"].toArray();
    const QJsonObject span = events.last().toObject();
    QCOMPARE(span["name"].toString(), command->id);
    QCOMPARE(span["args"]["message"].toString(), QStringLiteral("disk full"));
    const QJsonObject end = events[events.size() - 2].toObject();
    const QJsonObject begin = events[events.size() - 3].toObject();
    QVERIFY(begin["ts"].toDouble() <= span["ts"].toDouble());
    QVERIFY(span["ts"].toDouble() + span["dur"].toDouble() <= end["ts"].toDouble());
  }

  void logAndRunsAreForAnyThread() {
    RunModel model;
    const auto command = createShared<TestCommand>(QStringLiteral("id"));
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i) {
      threads.emplace_back([&command] {
        for (int run = 0; run < 100; ++run)
          command->onExecute();
      });
    }
    for (std::thread& thread : threads)
      thread.join();
    QCOMPARE(RunLog::Instance().records().size(), 400);
    QTRY_COMPARE(model.rowCount(), 400);
    const auto records = RunLog::Instance().records();
    QVERIFY(std::is_sorted(records.cbegin(), records.cend(),
                           [](const auto& a, const auto& b) { return a.id < b.id; }));
    for (int row = 0; row < 400; ++row)
      QTRY_COMPARE(model.index(row, 0).data(RunModel::RecordRole).value<RunRecord>().outcome, RunSucceeded);
  }
};

VELA_TEST_MAIN(RunsTest)
#include "runs_test.moc"
