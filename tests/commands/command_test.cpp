// SPDX-License-Identifier: MIT
#include "execution_fixture.h"

#include <support/test_case.h>

#include <QSignalSpy>

#include <stdexcept>
#include <thread>

using namespace Vela::License;
using namespace Vela::UiBase;
using Taren::Core::MainThreadQoS;
using Taren::Core::ScopedDispatcher;
using Taren::Core::SteppedDispatcher;
using Taren::Objects::createShared;

namespace {

void asksFirst(ELicenseState state, int key, int runs) {
  const LicenseState license(state);
  AsyncFixture f;
  f.command->setExecutionQoS(MainThreadQoS);
  f.command->setIsPaidFeature(true);
  f.view->show();
  const QSignalSpy toBeTriggered(f.command, &CommandBase::toBeTriggered);
  PaidFeatureBox box([key](QWindow* window) { QTest::keyClick(window, Qt::Key(key)); });
  f.command->trigger();
  QCOMPARE(box.seen(), key ? 1 : 0);
  QCOMPARE(f.log.entries.filter(QStringLiteral("work")).count(), runs);
  QCOMPARE(toBeTriggered.count(), runs);
}

void diesWhileAsked(const QString& what, int told) {
  const LicenseState license(TrialLicense);
  AsyncFixture f;
  f.command->setExecutionQoS(MainThreadQoS);
  f.command->setIsPaidFeature(true);
  f.view->show();
  PaidFeatureBox box([&](QWindow* window) {
    if (what == QLatin1String("view")) {
      f.deleteView(); // and the box with it
      return;
    }
    what == QLatin1String("remove") ? void(f.controller->removeCommand(f.command)) : delete f.command;
    QTest::keyClick(window, Qt::Key_Return);
  });
  f.command->trigger();
  QCOMPARE(box.seen(), 1);
  f.dispatcher.runAll();
  QCOMPARE(f.log.entries.size(), told);
}

void diesAt(const QString& stage, const QString& how) {
  const bool removed = how == QLatin1String("removed");
  SteppedDispatcher dispatcher;
  const ScopedDispatcher installed(dispatcher);
  int destroyed = 0;
  auto manager = createShared<CmdMgr>();
  auto* const command = new TestCommand(QStringLiteral("id"));
  command->atEnd = [&destroyed] { ++destroyed; };
  if (how != QLatin1String("deleted"))
    manager->addCommand(command);
  const auto die = [&, command] { removed ? void(manager->removeCommand(command)) : delete command; };

  ExecutionLog log(*command);
  const auto dieAt = [&](const QString& where) {
    return [&, where](CommandBase*, bool checked) {
      log.note(qPrintable(where), checked);
      if (stage == where)
        die();
    };
  };
  const auto dieAtSignal = [&] {
    if (stage == QLatin1String("signal") || stage == QLatin1String("toggle"))
      die();
  };
  command->setCheckable(stage == QLatin1String("toggle"));
  QObject::connect(command, &CommandBase::toBeTriggered, dieAtSignal);
  QObject::connect(command, &CommandBase::toBeToggled, dieAtSignal);
  log.observer->began = dieAt("began");
  log.observer->ended = dieAt("ended");
  command->work = [&, work = dieAt("work")](bool checked) {
    work(nullptr, checked);
    return true;
  };
  command->trigger();
  dispatcher.runAll();
  QCOMPARE(destroyed, 1);
  // A command that is only let go of lives to the end of its run.
  const QHash<QString, int> told{{"signal", 0}, {"toggle", 0}, {"began", 1}, {"work", 2}, {"ended", 3}};
  QCOMPARE(log.entries.size(), removed ? 3 : told.value(stage));
  manager.reset();
  dispatcher.runAll();
  QCOMPARE(destroyed, 1);
}

} // namespace

/// How a command runs when it is triggered or toggled, what it survives, and how it asks for a licence.
class CommandTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void runsOncePerTriggerOrToggle() {
    struct Row {
      bool checkable;
      const char* slot;
      QStringList heard;
    };
    const QStringList ran{"began 0", "work 0", "ended 0"};
    const QStringList toggled{"toBeToggled 1", "began 1", "work 1", "ended 1"};
    for (const Row& row :
         {Row{false, "trigger", QStringList{"toBeTriggered 0"} + ran}, Row{false, "toggle", {}},
          Row{false, "onExecute", ran}, Row{true, "trigger", toggled}, Row{true, "toggle", toggled}}) {
      TestCommand command(QStringLiteral("id")); // on the stack, never shared
      command.setCheckable(row.checkable);
      ExecutionLog log(command);
      connect(&command, &CommandBase::toBeTriggered,
              [&](bool checked) { log.note("toBeTriggered", checked); });
      connect(&command, &CommandBase::toBeToggled, [&](bool checked) { log.note("toBeToggled", checked); });
      QVERIFY(QMetaObject::invokeMethod(&command, row.slot));
      command.setEnabled(false);
      command.trigger();
      QStringList heard = log.entries;
      for (QString& entry : heard)
        entry.truncate(entry.indexOf(QLatin1String(" |")));
      QCOMPARE(heard, row.heard);
    }
  }

  void synchronousRunStaysOnItsThread() {
    SteppedDispatcher dispatcher;
    const ScopedDispatcher installed(dispatcher);
    const auto command = createShared<TestCommand>(QStringLiteral("id"));
    ExecutionLog log(*command);
    QThread* thread = nullptr;
    QThread* failedOn = nullptr;
    command->failed = [&](const QString&) { failedOn = QThread::currentThread(); };
    std::thread other([&] {
      thread = QThread::currentThread();
      command->onExecute();
      command->work = [](bool) -> bool { throw std::runtime_error("refused"); };
      command->onExecute();
    });
    other.join();
    QCOMPARE(log.threads, QList<QThread*>(5, thread));
    QVERIFY(!failedOn); // the reason is shown by the main thread
    dispatcher.runAll();
    QCOMPARE(failedOn, QThread::currentThread());
  }

  void guardedObserverNeverSeesADeadCommand() {
    class Guarded : public QObject, public TestObserver {
      using QObject::QObject;
    };
    SteppedDispatcher dispatcher;
    const ScopedDispatcher installed(dispatcher);
    QObject parent;
    auto* const observer = new Guarded(&parent);
    QStringList heard;
    observer->began = [&](CommandBase* command, bool) { heard += command->commandId(); };
    auto shared = createShared<TestCommand>(QStringLiteral("shared"));
    auto unshared = std::make_unique<TestCommand>(QStringLiteral("unshared"));
    for (TestCommand* const command : {shared.get(), unshared.get()}) {
      command->addObserver(observer);
      command->trigger();
    }
    shared.reset();
    unshared.reset();
    dispatcher.runAll();
    QCOMPARE(heard, QStringList{QStringLiteral("shared")}); // which lives as long as it is told of
  }

  void commandDiesOfItsOwnSignals() {
    for (const char* stage : {"signal", "toggle", "began", "work", "ended"}) {
      for (const char* how : {"deleted", "removed", "deleted though shared"})
        diesAt(stage, how);
    }
  }

  void paidFeatureAsksFirst() {
    asksFirst(FullLicense, 0, 1);
    asksFirst(TrialLicense, Qt::Key_Return, 1);
    asksFirst(TrialLicense, Qt::Key_Escape, 0);
    asksFirst(NoLicense, Qt::Key_Escape, 0);
  }

  void everythingMayDieWhileTheUserIsAsked() {
    diesWhileAsked("delete", 0);
    diesWhileAsked("remove", 3); // lives to the end of its run
    diesWhileAsked("view", 0);
  }
};

VELA_TEST_MAIN(CommandTest)
#include "command_test.moc"
