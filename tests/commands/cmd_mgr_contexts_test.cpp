// SPDX-License-Identifier: MIT
#include "manager_fixture.h"

#include <support/test_case.h>

#include <QRegularExpression>

#include <atomic>
#include <stdexcept>
#include <thread>

using namespace Ids;
using namespace Vela::UiBase;
using Taren::Objects::createShared;

/// The contexts that a command manager makes, saves and applies.
class CmdMgrContextsTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void contextsCoverABagAGroupOrACommand() {
    ManagerFixture f;
    f.add(checkableCommand(c, true))->setEnabled(false);
    auto* const group =
        f.add(groupOf(QStringLiteral("G"),
                      {checkableCommand(a, true), groupOf(QStringLiteral("H"), {new TestCommand(b)})}));
    const QString g = groupId(QStringLiteral("G"));
    const auto all = [&g](const char* state, const char* ofA, const char* ofC) {
      return QStringLiteral("%1=%3 %2=%3 a=%4 b=%3 c=%5")
          .arg(g, groupId(QStringLiteral("H")), QLatin1String(state), QLatin1String(ofA), QLatin1String(ofC));
    };
    const CmdMgr& manager = *f.manager;
    QCOMPARE(textOf(manager.defaultContext(nullptr)), all("1,0", "1,0", "1,0"));
    QCOMPARE(textOf(manager.disabledContext(nullptr)), all("0,2", "0,2", "0,2"));
    QCOMPARE(textOf(manager.currentContext(nullptr)),
             all("1,0", "1,1", "0,1").replace(g + QStringLiteral("=1,0"), g + QStringLiteral("=1,1")));
    QCOMPARE(textOf(manager.currentActiveContext(nullptr)), g + QStringLiteral("=1,1 a=1,1 c=0,1"));

    CommandBag* const bag = &group->commandBag();
    const QString inGroup = groupId(QStringLiteral("H")) + QStringLiteral("=0,2 a=0,2 b=0,2");
    QCOMPARE(textOf(manager.disabledContext(bag)), inGroup);
    QCOMPARE(textOf(manager.disabledContext(g)), inGroup);
    QCOMPARE(textOf(manager.inactiveContext(groupId(QStringLiteral("H")))), QStringLiteral("b=2,0"));
    QCOMPARE(textOf(manager.currentContext(c)), QStringLiteral("c=0,1"));
    QCOMPARE(textOf(manager.currentActiveContext(g)), QStringLiteral("a=1,1"));
    QVERIFY(manager.disabledContext(d).isEmpty() && manager.currentContext(d).isEmpty());
    CommandContext asked = CommandContext{{c, {2, 2}}};
    asked.overwrite(d, {1, 1});
    QCOMPARE(textOf(manager.currentContext(asked)), QStringLiteral("c=0,1"));
  }

  void contextsAreAppliedLaterInOrder() {
    ManagerFixture f;
    QStringList applied;
    for (const QLatin1String id : {b, a}) {
      f.add(checkableCommand(id))->work = [&, id](bool checked) {
        applied += QStringLiteral("%1 %2 %3").arg(id).arg(checked).arg(f.manager->isApplyingContext());
        return true;
      };
    }
    f.add(groupOf(QStringLiteral("G"), {new TestCommand(c)}));
    CommandContext context = CommandContext{{a, {0, 1}}};
    context.overwrite(b, {2, 1});
    context.overwrite(c, {0, 1});
    context.overwrite(d, {0, 1});
    f.manager->setContext(context);
    f.manager->setContext(CommandContext{{a, {1, 2}}});
    QVERIFY(applied.isEmpty() && !f.manager->isApplyingContext());
    QCOMPARE(textOf(f.manager->currentContext(a)), QStringLiteral("a=1,0"));
    f.apply();
    QCOMPARE(applied, (QStringList{QStringLiteral("a 1 1"), QStringLiteral("b 1 1")}));
    QVERIFY(!f.manager->isApplyingContext());
    QCOMPARE(f.states(), groupId(QStringLiteral("G")) + QStringLiteral("=1,0 a=1,1 b=1,1 c=0,0"));
  }

  void updateInStackStopsAtTheFirstGap() {
    ManagerFixture f;
    f.add(a);
    f.manager->updateContextInStack(a, {0, 2});
    f.manager->pushContext({});
    f.manager->pushContext({});
    f.add(b);
    f.manager->pushContext({});
    const auto stack = [&f] {
      QStringList texts;
      for (const CommandContext& saved : f.manager->contextStack())
        texts += textOf(saved);
      return texts;
    };
    f.manager->updateContextInStack(b, {0, 2});
    f.manager->updateContextInStack(QString(), {0, 2});
    QCOMPARE(stack(),
             (QStringList{QStringLiteral("a=1,0"), QStringLiteral("a=1,0"), QStringLiteral("a=1,0 b=1,0")}));
    f.manager->updateContextInStack(a, {2, 1});
    QCOMPARE(stack(),
             (QStringList{QStringLiteral("a=2,1"), QStringLiteral("a=2,1"), QStringLiteral("a=2,1 b=1,0")}));
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
    f.manager->pushContext({}); // the newcomer is not touched by what is pending
    QCOMPARE(textOf(f.manager->contextStack().first()), QStringLiteral("a=1,1"));
    f.apply();
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

  void groupMayStandInTwoManagers() {
    ManagerFixture f;
    auto other = createShared<TestManager>();
    auto* const first = checkableCommand(a);
    auto* const second = checkableCommand(b);
    auto* const group = f.add(groupOf("G", {first, second}));
    other->addCommand(group);
    auto hold = other->holdContext({{b, {0, 2}}});
    first->work = [&](bool) {
      other->removeCommand(a); // out of the group, while the first manager leads through it
      hold.release();
      other.reset();
      return true;
    };
    f.manager->setContext({{a, {2, 1}}, {b, {2, 1}}});
    f.apply();
    QVERIFY(second->isChecked() && second->isEnabled() && !f.manager->findCommand(a));
    QCOMPARE(f.heardBy(*second), 1);
  }

  void pushFromAToggleSavesWhatIsStillToCome() {
    ManagerFixture f;
    auto* const toggled = f.add(checkableCommand(a));
    auto* const other = f.add(b);
    toggled->work = [&](bool) {
      f.manager->pushContext(CommandContext{{b, {1, 2}}});
      return true;
    };
    CommandContext context = CommandContext{{a, {2, 1}}};
    context.overwrite(b, {0, 2});
    f.manager->setContext(context);
    f.apply();
    QVERIFY(other->isEnabled());
    QCOMPARE(textOf(f.manager->contextStack().first()), QStringLiteral("a=1,1 b=0,0"));
    f.manager->popContext();
    f.apply();
    QVERIFY(!other->isEnabled());
  }

  void presentStatesAreGatheredForAnotherThread() {
    const auto manager = createShared<CmdMgr>();
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
