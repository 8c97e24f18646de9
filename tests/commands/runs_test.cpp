// SPDX-License-Identifier: MIT
#include "execution_fixture.h"

#include <support/test_case.h>
#include <ui_base/commands/run_log.h>
#include <ui_base/commands/run_model.h>

#include <new>
#include <stdexcept>

using namespace Vela::UiBase;
using Taren::Core::MainThreadQoS;
using Taren::Core::NormalQoS;
using Taren::Objects::createShared;

namespace {

RunRecord newest() {
  const auto records = RunLog::Instance().records();
  return records.isEmpty() ? RunRecord() : records.constLast();
}

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
    QCOMPARE(newest().outcome, outcome);
    QCOMPARE(seenAtEnd, outcome);
    QCOMPARE(newest().message, message);
    QCOMPARE(failure, message);
    QVERIFY(f.command->runs().isEmpty() && CommandRun::current().isNull());
  }
}

} // namespace

/// What is recorded of the runs of commands, and what a run offers to its work.
class RunsTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void cleanup() {
    RunLog::Instance().setCapacity(RunLog::defaultCapacity);
    RunLog::Instance().clear();
    QVERIFY(RunLog::Instance().runsUnderway().isEmpty());
  }

  void endIsRecorded() {
    records([](AsyncFixture&) { return true; }, RunSucceeded);
    records([](AsyncFixture&) { return false; }, RunDeclined);
    records([](AsyncFixture&) -> bool { throw std::runtime_error("no mesh"); }, RunFailed, "no mesh");
    records([](AsyncFixture&) -> bool { throw std::bad_alloc(); }, RunFailed, "There is not enough memory.");
    records(
        [](AsyncFixture& f) {
          f.command->requestStop();
          return false;
        },
        RunStopped);
    records(
        [](AsyncFixture& f) {
          f.command->requestStop();
          CommandRun::current().reporter().report(0.5); // throws
          return true;
        },
        RunStopped);
  }

  void refusedAndAbandonedRunsAreRecorded() {
    AsyncFixture f;
    f.dispatcher.setRefusing(true);
    f.command->trigger();
    QCOMPARE(newest().outcome, RunRefused);
    f.dispatcher.setRefusing(false);
    auto unshared = std::make_unique<TestCommand>(QStringLiteral("unshared"));
    unshared->setExecutionQoS(NormalQoS);
    unshared->trigger();
    QCOMPARE(newest().outcome, RunUnderway);
    unshared.reset();
    f.dispatcher.runAll();
    QCOMPARE(newest().outcome, RunAbandoned);
    QCOMPARE(newest().commandId, QStringLiteral("unshared"));
  }

  void traceShowsWhatRan() {
    AsyncFixture f;
    f.command->failed = [](const QString&) {};
    f.command->work = [](bool) -> bool { throw std::runtime_error("no mesh"); };
    for (const bool refusing : {true, false}) {
      f.dispatcher.setRefusing(refusing);
      f.command->trigger();
      f.dispatcher.runAll();
    }
    const QTemporaryDir directory;
    QFile file(directory.filePath("trace"));
    QVERIFY(service().Kernel().writeTrace(file.fileName()) && file.open(QFile::ReadOnly));
    const QByteArray trace = file.readAll();
    QCOMPARE(trace.count("\"run\":"), 1);
    QVERIFY(trace.contains("\"message\":\"no mesh\""));
  }

  void sourceIsTheInputThatWasGiven() {
    const auto command = createShared<TestCommand>(QStringLiteral("id"));
    command->setShortcut(Qt::Key_F7);
    QPushButton button;
    button.addAction(command.get());
    button.show();
    button.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&button));
    const auto click = [&button](const auto& act) {
      QObject context;
      connect(&button, &QPushButton::clicked, &context, act);
      QTest::mouseClick(button.windowHandle(), Qt::LeftButton);
    };
    QTest::keyClick(button.windowHandle(), Qt::Key_F7);
    QCOMPARE(newest().source, RunByKey);
    click([&] {
      const TestCommand another(QStringLiteral("made meanwhile"));
      command->trigger();
    });
    QCOMPARE(newest().source, RunByMouse);
    click([&] {
      Vela::Test::settle(); // in a loop that the click began
      command->trigger();
    });
    QCOMPARE(newest().source, RunByProgram);
  }

  void eachRunIsStoppedByItself() {
    AsyncFixture f;
    QList<quint64> stopped;
    QList<bool> parents;
    QList<double> progress;
    f.command->work = [&](bool) {
      f.other->onExecute(); // a run within gives way to the outer one
      const CommandRun run = CommandRun::current();
      parents += newest().parent == run.id();
      if (run.stopToken().stop_requested())
        stopped += run.id();
      for (const double given : {-1.0, 0.05, 2.0}) {
        run.setProgress(given);
        progress += run.progress();
      }
      return true;
    };
    f.command->trigger();
    f.command->trigger();
    const QList<CommandRun> runs = f.command->runs();
    QCOMPARE(runs.size(), 2);
    QVERIFY(!runs[1].canBeStopped() && runs[1].progress() < 0);
    QVERIFY(runs[1].requestStop() && !runs[1].requestStop());
    f.dispatcher.runAll();
    QCOMPARE(stopped, QList<quint64>{runs[1].id()});
    QCOMPARE(parents, QList<bool>(2, true));
    QVERIFY(runs[0].canBeStopped() && !runs[0].isUnderway());
    QCOMPARE(progress.first(3), (QList{0.0, 0.05, 1.0}));
  }

  void logAndModelAreForAnyThread() {
    RunModel model;
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
    RunLog::Instance().setCapacity(300);
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
    const auto records = RunLog::Instance().records();
    QVERIFY(std::is_sorted(records.cbegin(), records.cend(),
                           [](const auto& a, const auto& b) { return a.id < b.id; }));
    QTRY_COMPARE(model.rowCount(), 300); // the oldest went
    QTRY_COMPARE(model.index(299, RunModel::OutcomeColumn).data(), "Done");
    for (const int column : {RunModel::WaitColumn, RunModel::DurationColumn})
      QCOMPARE(model.index(0, column).data(RunModel::SortRole).typeId(), int(QMetaType::Double));
    RunLog::Instance().clear();
    QCOMPARE(model.rowCount(), 0);
  }
};

VELA_TEST_MAIN(RunsTest)
#include "runs_test.moc"
