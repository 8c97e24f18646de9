// SPDX-License-Identifier: MIT
#include "execution_fixture.h"

#include <support/test_case.h>
#include <ui_base/popups/notification_bar.h>

#include <QRegularExpression>
#include <QSignalSpy>

#include <atomic>
#include <stdexcept>
#include <thread>

using namespace Vela::UiBase;
using Taren::Core::MainThreadQoS;
using Taren::Core::NormalQoS;
using Taren::Core::ScopedDispatcher;
using Taren::Core::SteppedDispatcher;
using Taren::Objects::createShared;
using namespace Vela::License;

class CommandTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void initTestCase() { NotificationBar::setDefaultFadeDuration(0); }
  void cleanup() { QVERIFY(service().isWorkspaceSwitchingEnabled()); }

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

  void asynchronousRunGoesStepByStep() {
    AsyncFixture f;
    QList<bool> switching;
    QList<qsizetype> stacked;
    f.log.observer->ended = [&](CommandBase*, bool checked) {
      f.log.note("ended", checked);
      switching += service().isWorkspaceSwitchingEnabled();
      stacked += f.controller->contextStack().size();
    };
    f.command->trigger();
    QCOMPARE(f.log.entries, QStringList{beganLine});
    QCOMPARE(f.controller->contextStack().size(), 1);
    QCOMPARE(f.dispatcher.pending(NormalQoS), std::size_t(1));
    QVERIFY(f.dispatcher.step(NormalQoS));
    QCOMPARE(f.log.entries, (QStringList{beganLine, workLine}));

    // What the main thread does: the broadcast, the context, the switch, the closing steps.
    QVERIFY(f.dispatcher.step() && f.other->isEnabled());
    QVERIFY(f.dispatcher.step() && !f.other->isEnabled() && service().isWorkspaceSwitchingEnabled());
    QVERIFY(f.dispatcher.step() && !service().isWorkspaceSwitchingEnabled());
    QCOMPARE(f.log.entries.size(), 2);
    QVERIFY(f.dispatcher.step() && service().isWorkspaceSwitchingEnabled());
    QCOMPARE(f.log.entries, (QStringList{beganLine, workLine, endedLine}));
    QCOMPARE(switching, QList<bool>{false});
    QCOMPARE(stacked, QList<qsizetype>{0});
    QVERIFY(!f.other->isEnabled());
    f.dispatcher.runAll();
    QVERIFY(f.other->isEnabled());
  }

  void emptyContextPushesAndPopsNothing() {
    AsyncFixture f;
    f.command->executionContext = {};
    f.controller->pushContext(f.controller->disabledContext());
    f.command->trigger();
    QCOMPARE(f.controller->contextStack().size(), 1);
    f.dispatcher.runAll();
    QCOMPARE(f.log.entries.size(), 3);
    QCOMPARE(f.controller->contextStack().size(), 1);
  }

  void refusalStillCloses_data() {
    QTest::addColumn<bool>("atTrigger");
    QTest::addColumn<bool>("atSwitch");
    QTest::addColumn<bool>("atClose");
    QTest::newRow("work refused") << true << false << false;
    QTest::newRow("switch refused") << false << true << false;
    QTest::newRow("close refused") << false << false << true;
    QTest::newRow("switch and close refused") << false << true << true;
  }

  void refusalStillCloses() {
    QFETCH(bool, atTrigger);
    QFETCH(bool, atSwitch);
    QFETCH(bool, atClose);
    AsyncFixture f;
    f.command->work = [&](bool checked) {
      f.log.note("work", checked);
      f.dispatcher.setRefusing(atClose);
      return true;
    };
    f.dispatcher.setRefusing(atTrigger);
    QCOMPARE(f.command->onExecute(), !atTrigger);
    f.dispatcher.setRefusing(atSwitch);
    f.dispatcher.step(NormalQoS);
    f.dispatcher.setRefusing(false);
    f.dispatcher.runAll();
    QCOMPARE(f.log.entries.last(), endedLine);
    QCOMPARE(f.log.entries.size(), atTrigger ? 2 : 3);
    QVERIFY(f.controller->contextStack().isEmpty());
  }

  void workThatThrowsClosesAndSaysWhy_data() {
    QTest::addColumn<bool>("asynchronous");
    QTest::addColumn<bool>("standard");
    QTest::newRow("at once") << false << true;
    QTest::newRow("at once, not a standard exception") << false << false;
    QTest::newRow("later") << true << true;
    QTest::newRow("later, not a standard exception") << true << false;
  }

  void workThatThrowsClosesAndSaysWhy() {
    QFETCH(bool, asynchronous);
    QFETCH(bool, standard);
    const QString reason = standard ? QStringLiteral("no such mesh") : QStringLiteral("unknown error");
    AsyncFixture f;
    f.command->setExecutionQoS(asynchronous ? NormalQoS : MainThreadQoS);
    f.command->work = [standard](bool) -> bool {
      if (standard)
        throw std::runtime_error("no such mesh");
      throw 1;
    };
    f.view->show();
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("^work failed: ") + reason));
    QCOMPARE(f.command->onExecute(), asynchronous);
    f.dispatcher.runAll();
    QCOMPARE(f.log.entries.last(), endedLine);
    QVERIFY(f.controller->contextStack().isEmpty() && f.other->isEnabled());
    const auto* const bar = f.view->findChild<NotificationBar*>();
    QVERIFY(bar && bar->isVisible());
    QVERIFY2(bar->accessibleName().contains(reason), qPrintable(bar->accessibleName()));
  }

  void viewDiesMeanwhile_data() {
    QTest::addColumn<bool>("beforeWork");
    QTest::newRow("before the work") << true;
    QTest::newRow("after the work") << false;
  }

  void viewDiesMeanwhile() {
    QFETCH(bool, beforeWork);
    AsyncFixture f;
    bool controllerSeen = true;
    f.log.observer->ended = [&](CommandBase* command, bool checked) {
      f.log.note("ended", checked);
      controllerSeen = command->getViewController() || command->getView();
    };
    f.command->trigger();
    if (beforeWork)
      delete f.view;
    f.dispatcher.step(NormalQoS);
    if (!beforeWork)
      delete f.view;
    f.dispatcher.runAll();
    QCOMPARE(f.log.entries, (QStringList{beganLine, workLine, endedLine}));
    QVERIFY(!controllerSeen);
  }

  void commandIsRemovedMeanwhile() {
    AsyncFixture f;
    int destroyed = 0;
    f.command->atEnd = [&destroyed] { ++destroyed; };
    f.command->trigger();
    QVERIFY(f.controller->removeCommand(f.command));
    f.dispatcher.step(NormalQoS);
    QCOMPARE(destroyed, 0);
    f.dispatcher.runAll();
    QCOMPARE(f.log.entries.last(), endedLine);
    QCOMPARE(destroyed, 1);
    QVERIFY(f.other->isEnabled());
  }

  void commandUsesItsControllerAtItsEnd() {
    AsyncFixture f;
    QList<bool> found;
    f.other->setViewController(f.controller);
    f.other->atEnd = [&, command = f.other] {
      if (auto* const controller = command->getViewController())
        found += controller->findCommand(QStringLiteral("work")) != nullptr;
    };
    delete f.view;
    QCOMPARE(found, QList<bool>{false});
  }

  void unsharedCommandDiesBeforeItsWork() {
    SteppedDispatcher dispatcher;
    const ScopedDispatcher installed(dispatcher);
    auto* const command = new TestCommand(QStringLiteral("id"));
    command->setExecutionQoS(NormalQoS);
    ExecutionLog log(*command);
    command->trigger();
    delete command;
    dispatcher.runAll();
    QCOMPARE(log.entries, QStringList{beganLine});
    QCOMPARE(newestWaypoint(), QStringLiteral("CMD END   TestCommand(false)"));
  }

  void lastReferenceGoesOnAWorker() {
    for (int round = 0; round < 20; ++round) {
      std::atomic<bool> released = false;
      QThread* destroyedOn = nullptr;
      auto command = createShared<TestCommand>(QStringLiteral("id"));
      command->setExecutionQoS(NormalQoS);
      command->atEnd = [&destroyedOn] { destroyedOn = QThread::currentThread(); };
      command->work = [&released](bool) {
        while (!released)
          std::this_thread::yield();
        return true;
      };
      command->trigger();
      command.reset();
      released = true;
      QTRY_VERIFY(destroyedOn);
      QCOMPARE(destroyedOn, QThread::currentThread());
      QTRY_VERIFY(service().isWorkspaceSwitchingEnabled());
    }
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
        delete f.view; // and the box with it
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
