// SPDX-License-Identifier: MIT
#include "execution_fixture.h"

#include <support/test_case.h>
#include <ui_base/notifications/notification_bar.h>

#include <QRegularExpression>

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
    QVERIFY(f.log.entries.last() == endedLine);
    QCOMPARE(f.log.entries.size(), atTrigger ? 2 : 3);
    QVERIFY(f.controller->contextStack().isEmpty());
  }

  void workThatThrowsClosesAndSaysWhy_data() {
    QTest::addColumn<bool>("asynchronous");
    QTest::addColumn<bool>("standard");
    QTest::newRow("at once") << false << true;
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
    QVERIFY(f.log.entries.last() == endedLine);
    QVERIFY(f.controller->contextStack().isEmpty() && f.other->isEnabled());
    const auto* const bar = f.view->findChild<NotificationBar*>();
    QVERIFY(bar && bar->isVisible());
    QVERIFY2(bar->accessibleName().contains(reason), qPrintable(bar->accessibleName()));
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
    f.command->trigger();
    QVERIFY(f.controller->removeCommand(f.command));
    f.dispatcher.step(NormalQoS);
    QCOMPARE(destroyed, 0);
    f.dispatcher.runAll();
    QVERIFY(f.log.entries.last() == endedLine);
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
    f.deleteView();
    QCOMPARE(found, QList<bool>{false});
  }
};

VELA_TEST_MAIN(AsyncCommandTest)
#include "async_command_test.moc"
