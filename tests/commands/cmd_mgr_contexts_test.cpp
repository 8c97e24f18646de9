// SPDX-License-Identifier: MIT
#include "manager_fixture.h"

#include <support/test_case.h>

#include <atomic>
#include <stdexcept>
#include <thread>

using namespace Ids;
using namespace Vela::UiBase;

/// The contexts that a command manager makes, saves and applies.
class CmdMgrContextsTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void contextsCoverABagAGroupOrACommand() {
    ManagerFixture f;
    f.add(checkableCommand(c, true))->setEnabled(false);
    f.add(groupOf("G", {checkableCommand(a, true), groupOf("H", {new TestCommand(b)})}));
    const CmdMgr& manager = *f.manager;
    const QString g = groupId("G");
    const QString h = groupId("H");
    QCOMPARE(textOf(manager.defaultContext(nullptr)), g + "=1,0 " + h + "=1,0 a=1,0 b=1,0 c=1,0");
    QCOMPARE(textOf(manager.disabledContext(g)), h + "=0,2 a=0,2 b=0,2");
    QCOMPARE(textOf(manager.inactiveContext(h)), "b=2,0");
    QCOMPARE(textOf(manager.currentActiveContext(nullptr)), g + "=1,1 a=1,1 c=0,1");
    QCOMPARE(textOf(manager.currentContext(CommandContext{{c, {2, 2}}, {d, {1, 1}}})), "c=0,1");
    QVERIFY(manager.disabledContext(QString(d)).isEmpty());
    f.dispatcher.setRefusing(true);
    f.manager->setContext({{c, {1, 0}}}); // is not awaited
    f.dispatcher.setRefusing(false);
    f.manager->pushContext({});
    QCOMPARE(textOf(manager.contextStack().constFirst()[c]), "0,1");
  }

  void halfAppliedContextIsFinishedFirstWhateverACommandThrows() {
    struct Throwing : TestCommand {
      using TestCommand::TestCommand;
      void setCommandState(const CommandState& state) override {
        TestCommand::setCommandState(state);
        throw std::runtime_error("no state");
      }
    };
    for (const bool throws : {true, false}) {
      ManagerFixture f;
      auto* const first = throws ? new Throwing(a) : new TestCommand(a);
      auto* const second = f.add(checkableCommand(b));
      first->setCheckable(true);
      f.add(first);
      // Toggling the first turns an event loop, in which the rest comes before the next context.
      connect(first, &QAction::toggled, first, [&f] { f.dispatcher.runAll(); });
      f.manager->setContext({{a, {2, 1}}, {b, {0, 1}}});
      f.manager->setContext(f.manager->inactiveContext(QString(b)));
      if (throws)
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("no state"));
      f.apply();
      QVERIFY(first->isChecked() && !second->isChecked() && !second->isEnabled());
    }
  }

  void contextOutlivesTheRegistry() {
    ManagerFixture f;
    auto* const command = f.add(checkableCommand(a, true));
    const auto kept = command->shared_from_this();
    f.manager->setContext(f.manager->inactiveContext());
    f.manager->removeAllCommands();
    auto* const newcomer = f.add(checkableCommand(a, true));
    const auto keptToo = newcomer->shared_from_this();
    f.apply(); // the newcomer is not touched by what was pending
    QVERIFY(!command->isChecked() && newcomer->isChecked());
    f.manager->setContext(f.manager->inactiveContext());
    f.manager.reset();
    f.apply();
    QVERIFY(!newcomer->isChecked());
  }

  void toggleInAnAppliedContextChangesTheRegistry() {
    using Change = void (*)(ManagerFixture&);
    const std::pair<Change, bool> changes[] = {
        {[](ManagerFixture& f) { f.manager->removeCommand(a); }, true}, // the last that holds it
        {[](ManagerFixture& f) { f.manager->removeCommand(groupId("G")); }, true},
        {[](ManagerFixture& f) { f.manager->removeAllCommands(); }, true},
        {[](ManagerFixture& f) { f.manager.reset(); }, true},
        // Only a command that was removed by itself misses what was still to come.
        {[](ManagerFixture& f) { f.manager->removeCommand(b); }, false},
    };
    for (const auto& [change, isStillChecked] : changes) {
      ManagerFixture f;
      auto* const first = checkableCommand(a);
      f.add(groupOf("G", {first}));
      auto* const second = f.add(checkableCommand(b));
      const auto kept = second->shared_from_this();
      first->work = [&f, change = change](bool) {
        change(f);
        return true;
      };
      f.manager->setContext({{a, {2, 1}}, {b, {2, 1}}});
      f.apply();
      QCOMPARE(second->isChecked(), isStillChecked);
    }
  }

  void presentStatesAreGatheredForAnotherThread() {
    const auto manager = Taren::Objects::createShared<CmdMgr>();
    manager->addCommand(new TestCommand(a));
    std::atomic<bool> done = false;
    QString states;
    std::thread worker([&] {
      states = textOf(manager->currentContext());
      done = true;
    });
    QTRY_VERIFY(done);
    worker.join();
    QCOMPARE(states, QStringLiteral("a=1,0"));
  }
};

VELA_TEST_MAIN(CmdMgrContextsTest)
#include "cmd_mgr_contexts_test.moc"
