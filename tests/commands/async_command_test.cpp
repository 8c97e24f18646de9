// SPDX-License-Identifier: MIT
#include "execution_fixture.h"

#include <support/test_case.h>
#include <ui_base/notifications/notification_bar.h>

#include <stdexcept>

using namespace Vela::UiBase;
using Taren::Core::MainThreadQoS;
using Taren::Core::NormalQoS;

/// How a command works on another thread, and closes whatever becomes of the work.
class AsyncCommandTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void initTestCase() { NotificationBar::setDefaultFadeDuration(0); }
  void cleanup() { QVERIFY(service().isWorkspaceSwitchingEnabled()); }

  void asynchronousRunGoesStepByStep() {
    AsyncFixture f;
    QList<bool> switching;
    f.log.observer->ended = [&](CommandBase*, bool checked) {
      f.log.note("ended", checked);
      switching += service().isWorkspaceSwitchingEnabled();
      QVERIFY(f.controller->contextStack().isEmpty());
    };
    f.command->trigger();
    QCOMPARE(f.log.entries, QStringList{beganLine});
    QVERIFY(f.dispatcher.step(NormalQoS));
    QCOMPARE(f.log.entries, (QStringList{beganLine, workLine}));

    // What the main thread does: the broadcast, the context, the switch, the closing steps.
    QVERIFY(f.dispatcher.step() && f.other->isEnabled());
    QVERIFY(f.dispatcher.step() && !f.other->isEnabled() && service().isWorkspaceSwitchingEnabled());
    QVERIFY(f.dispatcher.step() && !service().isWorkspaceSwitchingEnabled());
    QVERIFY(f.dispatcher.step() && service().isWorkspaceSwitchingEnabled());
    QCOMPARE(f.log.entries, (QStringList{beganLine, workLine, endedLine}));
    QCOMPARE(switching, QList<bool>{false});
    f.dispatcher.runAll();
    QVERIFY(f.other->isEnabled());
  }

  void refusalStillCloses() {
    enum Refused { Begin = 1, Change = 2, Close = 4 };
    for (const int refused : {0b001, 0b010, 0b100, 0b110}) {
      AsyncFixture f;
      f.command->work = [&](bool checked) {
        f.log.note("work", checked);
        f.dispatcher.setRefusing(refused & Close);
        return true;
      };
      f.dispatcher.setRefusing(refused & Begin);
      QCOMPARE(f.command->onExecute(), !(refused & Begin));
      f.dispatcher.setRefusing(refused & Change);
      f.dispatcher.step(NormalQoS);
      f.dispatcher.setRefusing(false);
      f.dispatcher.runAll();
      QVERIFY(f.log.entries.last() == endedLine);
      QCOMPARE(f.log.entries.size(), refused & Begin ? 2 : 3);
      QVERIFY(f.controller->contextStack().isEmpty());
    }
  }

  void workThatThrowsClosesAndSaysWhy() {
    AsyncFixture f;
    f.command->work = [](bool) -> bool { throw 1; };
    f.view->show();
    QTest::ignoreMessage(QtWarningMsg, "work failed: unknown error");
    f.command->trigger();
    f.dispatcher.runAll();
    QVERIFY(f.log.entries.last() == endedLine && f.other->isEnabled());
    const auto* const bar = f.view->findChild<NotificationBar*>();
    QVERIFY(bar && bar->isVisible() && bar->accessibleName().contains("unknown error"));
  }

  void whatAnObserverThrowsKeepsNothingFromTheOthers() {
    using Row = std::pair<Taren::Core::EQualityOfService, bool>;
    for (const auto& [qos, atBegin] :
         {Row(MainThreadQoS, false), Row(MainThreadQoS, true), Row(NormalQoS, false), Row(NormalQoS, true)}) {
      AsyncFixture f;
      QStringList failures;
      f.command->failed = [&](const QString& reason) { failures += reason; };
      f.command->setExecutionQoS(qos);
      f.command->enableExecutionNotification(true);
      f.view->show();
      int heard = 0;
      (atBegin ? f.log.observer->began : f.log.observer->ended) = [&](CommandBase*, bool) {
        ++heard;
        throw std::runtime_error("observer");
      };
      for (int later = 0; later < 2; ++later) {
        f.command->addObserver(f.log.observer, true);
        QTest::ignoreMessage(QtWarningMsg, "An observer of a command failed: observer");
      }
      f.command->trigger();
      f.dispatcher.runAll();
      QVERIFY(!QGuiApplication::overrideCursor()); // of the controller, which was added after it
      QCOMPARE(failures, QStringList{"observer"});
      QCOMPARE(heard, 3);
      QCOMPARE(f.log.entries.contains(workLine), !atBegin);
    }
  }

  void viewDiesMeanwhile() {
    for (const bool beforeWork : {true, false}) {
      AsyncFixture f;
      bool controllerSeen = true;
      f.log.observer->ended = [&](CommandBase* command, bool checked) {
        f.log.note("ended", checked);
        controllerSeen = command->getViewController() || command->getView();
      };
      f.command->trigger();
      if (beforeWork)
        f.deleteView();
      f.dispatcher.step(NormalQoS);
      f.deleteView();
      f.dispatcher.runAll();
      QCOMPARE(f.log.entries, (QStringList{beganLine, workLine, endedLine}));
      QVERIFY(!controllerSeen);
    }
  }

  void commandIsRemovedMeanwhile() {
    AsyncFixture f;
    int destroyed = 0;
    f.command->atEnd = [&destroyed] { ++destroyed; };
    const auto kept = f.other->shared_from_this();
    f.command->trigger();
    f.drain();
    QVERIFY(f.controller->removeCommand(f.command) && f.controller->removeCommand(f.other));
    QVERIFY(!kept->isEnabled()); // as long as the run lasts
    f.dispatcher.step(NormalQoS);
    QCOMPARE(destroyed, 0);
    f.dispatcher.runAll();
    QCOMPARE(destroyed, 1);
    QVERIFY(f.log.entries.last() == endedLine && kept->isEnabled());
  }
};

VELA_TEST_MAIN(AsyncCommandTest)
#include "async_command_test.moc"
