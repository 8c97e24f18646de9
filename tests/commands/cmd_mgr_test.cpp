// SPDX-License-Identifier: MIT
#include "manager_fixture.h"

#include <support/test_case.h>

#include <stdexcept>

using namespace Vela::UiBase;
using namespace Ids;

/// What a command manager holds, finds, observes and tells its delegate.
class CmdMgrTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void whatAddingAnswers() {
    ManagerFixture f;
    TestCommand nameless{QString()};
    QVERIFY_THROWS_EXCEPTION(std::logic_error, f.manager->addCommand(&nameless));
    TestCommand mine(a);
    CmdMgr unshared;
    QVERIFY_THROWS_EXCEPTION(std::bad_weak_ptr, unshared.addCommand(&mine));
    QVERIFY(!nameless.isShared() && !mine.isShared());
    QVERIFY(f.delegate->heard.isEmpty() && f.bag().count() == 0);

    auto* const first = f.add(a);
    auto* const second = new TestCommand(a);
    QVERIFY(!f.manager->addCommand(first));
    QCOMPARE(f.manager->addCommand(second), second);
    QCOMPARE(f.delegate->heard.size(), 2);
    QVERIFY(f.manager->removeCommand(second));
    QCOMPARE(f.manager->findCommand(a), first);
    QCOMPARE(f.heardBy(*first), 1);
  }

  void groupTakesInTopLevelCommands() {
    ManagerFixture f;
    auto* const inner = f.add(a);
    f.add(b);
    f.add(c); // another object than the one of that name in the group
    auto* const group =
        groupOf(QStringLiteral("G"), {inner, groupOf(QStringLiteral("H"), {new TestCommand(c)})});
    f.delegate->heard.clear();
    QCOMPARE(f.manager->addCommand(group), group);
    QCOMPARE(f.delegate->heard, QStringList{QStringLiteral("added ") + groupId(QStringLiteral("G"))});
    QCOMPARE(f.manager->forgotten, QStringList{c});
    QCOMPARE(f.bag().count(), 2);
    QVERIFY(!f.bag().hasCommand(a) && f.manager->findCommand(a) == inner);
    QCOMPARE(f.heardBy(*inner), 1);
    QCOMPARE(f.heardBy(static_cast<TestCommand&>(*f.manager->findCommand(c))), 1);
  }

  void groupIsAbsorbedByTheOneOfItsName() {
    ManagerFixture f;
    auto* const known = new TestCommand(a);
    auto* const group = f.add(groupOf(QStringLiteral("G"), {known}));
    auto* const incoming = new TestCommand(b);
    QCOMPARE(f.manager->addCommand(groupOf(QStringLiteral("G"), {new TestCommand(a), incoming})), group);
    QCOMPARE(f.bag().count(), 1);
    QCOMPARE(group->commandBag().count(), 2);
    QVERIFY(f.manager->findCommand(a) == known && f.manager->findCommand(b) == incoming);
    QCOMPARE(incoming->commandGroup(), group);
    QCOMPARE(f.delegate->heard.count(QStringLiteral("added ") + groupId(QStringLiteral("G"))), 2);
  }

  void commandThatStandsInSeveralPlacesIsHeardOnceAndRemovedFromAll() {
    ManagerFixture f;
    const auto child = Taren::Objects::adoptShared(new TestCommand(a));
    for (const QLatin1String name : {b, c})
      f.add(groupOf(name, {child.get()}));
    QCOMPARE(f.manager->addCommand(child.get()), child.get());
    QCOMPARE(f.heardBy(*child), 1);
    child->begin();
    f.delegate->heard.clear();
    QVERIFY(f.manager->removeCommand(child.get()));
    QVERIFY(!f.manager->findCommand(a) && child->holdingGroups().isEmpty() && !f.manager->runningCommand());
    QCOMPARE(f.heardBy(*child), 0);
    QCOMPARE(f.delegate->heard, QStringList{QStringLiteral("removed a")});
    QCOMPARE(f.manager->forgotten, QStringList{a});
    QVERIFY(!f.manager->removeCommand(child.get()));
  }

  void whatIsDisabledMayBeRemovedByIt() {
    for (const bool isGroup : {false, true}) {
      ManagerFixture f;
      CommandBase* const command =
          isGroup ? f.add<CommandBase>(groupOf("G", {})) : f.add<CommandBase>(checkableCommand(a));
      connect(command, &QAction::enabledChanged, command, [&] { f.manager->removeCommand(command); });
      command->setCommandState({State::Off, State::On});
      QCOMPARE(f.bag().count(), 0);
    }
  }

  void delegateRemovesWhatIsAdded() {
    ManagerFixture f;
    auto* const command = new TestCommand(a);
    const auto kept = Taren::Objects::adoptShared<CommandBase>(command);
    f.delegate->added = [&](CommandBase& added) { f.manager->removeCommand(&added); };
    QVERIFY(!f.manager->addCommand(command));
    QCOMPARE(f.heardBy(*command), 0);
  }
};

VELA_TEST_MAIN(CmdMgrTest)
#include "cmd_mgr_test.moc"
