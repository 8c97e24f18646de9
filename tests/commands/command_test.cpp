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

/// How a command runs when it is triggered or toggled, what it survives, and how it asks for a licence.
class CommandTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void runsOncePerTriggerOrToggle_data() {
    QTest::addColumn<bool>("checkable");
    QTest::addColumn<QByteArray>("slot");
    QTest::addColumn<QStringList>("signalled");
    QTest::addColumn<int>("runs");
    QTest::newRow("trigger") << false << QByteArray("trigger") << QStringList{"toBeTriggered 0"} << 1;
    QTest::newRow("toggle, not checkable") << false << QByteArray("toggle") << QStringList{} << 0;
    QTest::newRow("execute, not checkable") << false << QByteArray("onExecute") << QStringList{} << 1;
    QTest::newRow("trigger, checkable") << true << QByteArray("trigger") << QStringList{"toBeToggled 1"} << 1;
    QTest::newRow("toggle") << true << QByteArray("toggle") << QStringList{"toBeToggled 1"} << 1;
  }

  void runsOncePerTriggerOrToggle() {
    QFETCH(bool, checkable);
    QFETCH(QByteArray, slot);
    QFETCH(int, runs);
    TestCommand command(QStringLiteral("id"));
    command.setCheckable(checkable);
    QStringList signalled;
    connect(&command, &CommandBase::toBeTriggered,
            [&](bool checked) { signalled += QStringLiteral("toBeTriggered %1").arg(checked); });
    connect(&command, &CommandBase::toBeToggled,
            [&](bool checked) { signalled += QStringLiteral("toBeToggled %1").arg(checked); });
    ExecutionLog log(command);
    QVERIFY(QMetaObject::invokeMethod(&command, slot.constData()));
    QTEST(signalled, "signalled");
    QCOMPARE(log.entries.filter(QStringLiteral("work")).count(), runs);
    command.setEnabled(false);
    command.trigger();
    QCOMPARE(log.entries.filter(QStringLiteral("work")).count(), runs);
  }

  void observersHearTheRunAroundTheWork() {
    TestCommand command(QStringLiteral("id")); // on the stack, never shared
    ExecutionLog log(command);
    command.trigger();
    QCOMPARE(log.entries, (QStringList{beganLine, workLine, endedLine}));
    command.setCheckable(true);
    log.entries.clear();
    command.setChecked(true);
    QCOMPARE(log.entries, (QStringList{QStringLiteral("began 1 | CMD BEGIN TestCommand(true)"),
                                       QStringLiteral("work 1 | CMD BEGIN TestCommand(true)"),
                                       QStringLiteral("ended 1 | CMD END   TestCommand(true)")}));
    command.work = [](bool) { return false; };
    QVERIFY(!command.onExecute());
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

  void statesAreAppliedPartByPart_data() {
    QTest::addColumn<bool>("checkable");
    QTest::addColumn<CommandState>("state");
    QTest::addColumn<QString>("expected");
    QTest::newRow("keep both") << true << CommandState(2, 2) << QStringLiteral("0,0");
    QTest::newRow("on, not checkable") << false << CommandState(1, 1) << QStringLiteral("1,0");
    QTest::newRow("on") << true << CommandState(1, 1) << QStringLiteral("1,1");
    QTest::newRow("enabled only") << true << CommandState(1, 2) << QStringLiteral("1,0");
    QTest::newRow("checked only") << true << CommandState(2, 1) << QStringLiteral("0,1");
  }

  void statesAreAppliedPartByPart() {
    QFETCH(CommandState, state);
    QFETCH(bool, checkable);
    TestCommand command(QStringLiteral("id"));
    QCOMPARE(textOf(command.defaultCommandState()), QStringLiteral("1,0"));
    command.setCheckable(checkable);
    command.setEnabled(false);
    const QSignalSpy changes(&command, &QAction::changed);
    QVERIFY(static_cast<QObject&>(command).setProperty("state", QVariant::fromValue(state)));
    QTEST(textOf(command.commandState()), "expected");
    QTEST(textOf(command.property("state").value<CommandState>()), "expected");
    const auto changeCount = changes.count();
    command.setCommandState(state);
    QCOMPARE(changes.count(), changeCount);
  }

  void guardedObserverNeverSeesADeadCommand_data() {
    QTest::addColumn<bool>("shared");
    QTest::newRow("shared") << true;
    QTest::newRow("never shared") << false;
  }

  void guardedObserverNeverSeesADeadCommand() {
    QFETCH(bool, shared);
    class Guarded : public QObject, public TestObserver {
      using QObject::QObject;
    };
    SteppedDispatcher dispatcher;
    const ScopedDispatcher installed(dispatcher);
    QObject parent;
    auto* const observer = new Guarded(&parent);
    QStringList heard;
    observer->began = [&](CommandBase* command, bool) { heard += command->commandId(); };
    auto* const command = new TestCommand(QStringLiteral("id"));
    auto owner = shared ? Taren::Objects::adoptShared<CommandBase>(command) : nullptr;
    command->addObserver(observer);
    command->trigger();
    if (shared)
      owner.reset();
    else
      delete command;
    QVERIFY(heard.isEmpty());
    dispatcher.runAll();
    QCOMPARE(heard, shared ? QStringList{QStringLiteral("id")} : QStringList());
  }

  void commandDiesOfItsOwnSignals_data() {
    QTest::addColumn<QString>("stage");
    QTest::addColumn<QString>("how");
    for (const char* stage : {"signal", "toggle", "began", "work", "ended"}) {
      for (const char* how : {"deleted", "removed", "deleted though shared"})
        QTest::addRow("%s, %s", stage, how) << QString::fromLatin1(stage) << QString::fromLatin1(how);
    }
  }

  void commandDiesOfItsOwnSignals() {
    QFETCH(QString, stage);
    QFETCH(QString, how);
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
    const auto dieAt = [&log, &die](const char* what) {
      return [&, what](CommandBase*, bool checked) {
        log.note(what, checked);
        die();
      };
    };
    command->setCheckable(stage == QLatin1String("toggle"));
    if (stage == QLatin1String("signal"))
      connect(command, &CommandBase::toBeTriggered, die);
    else if (stage == QLatin1String("toggle"))
      connect(command, &CommandBase::toBeToggled, die);
    else if (stage == QLatin1String("began"))
      log.observer->began = dieAt("began");
    else if (stage == QLatin1String("ended"))
      log.observer->ended = dieAt("ended");
    else
      command->work = [&](bool checked) {
        log.note("work", checked);
        die();
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

  void paidFeatureAsksFirst_data() {
    QTest::addColumn<ELicenseState>("state");
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("runs");
    QTest::newRow("licensed") << FullLicense << 0 << 1;
    QTest::newRow("trial, accepted") << TrialLicense << int(Qt::Key_Return) << 1;
    QTest::newRow("trial, declined") << TrialLicense << int(Qt::Key_Escape) << 0;
    QTest::newRow("no license, declined") << NoLicense << int(Qt::Key_Escape) << 0;
  }

  void paidFeatureAsksFirst() {
    QFETCH(ELicenseState, state);
    QFETCH(int, key);
    const LicenseState license(state);
    AsyncFixture f;
    f.command->setExecutionQoS(MainThreadQoS);
    f.command->setIsPaidFeature(true);
    f.view->show();
    const QSignalSpy toBeTriggered(f.command, &CommandBase::toBeTriggered);
    PaidFeatureBox box([key](QWindow* window) { QTest::keyClick(window, Qt::Key(key)); });
    f.command->trigger();
    QCOMPARE(box.seen(), key ? 1 : 0);
    QTEST(int(f.log.entries.filter(QStringLiteral("work")).count()), "runs");
    QTEST(int(toBeTriggered.count()), "runs");

    // Toggling is not gated.
    f.command->setCheckable(true);
    f.log.entries.clear();
    f.command->toggle();
    QCOMPARE(f.log.entries.size(), 3);
    QCOMPARE(box.seen(), key ? 1 : 0);
  }

  void everythingMayDieWhileTheUserIsAsked_data() {
    QTest::addColumn<QString>("what");
    QTest::addColumn<int>("told");
    QTest::newRow("command deleted") << QStringLiteral("delete") << 0;
    QTest::newRow("command removed") << QStringLiteral("remove") << 3; // lives to the end of its run
    QTest::newRow("view") << QStringLiteral("view") << 0;
  }

  void everythingMayDieWhileTheUserIsAsked() {
    QFETCH(QString, what);
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
    QTEST(int(f.log.entries.size()), "told");
  }
};

VELA_TEST_MAIN(CommandTest)
#include "command_test.moc"
