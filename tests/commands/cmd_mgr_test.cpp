// SPDX-License-Identifier: MIT
#include "manager_fixture.h"

#include <support/test_case.h>

#include <stdexcept>

using namespace Vela::UiBase;
using namespace Ids;

namespace {

void removes(bool inGroup, bool shadowed) {
  ManagerFixture f;
  auto* const first = new TestCommand(a);
  auto* const command = new TestCommand(a);
  QList<CommandBase*> commands{command};
  if (shadowed)
    commands.prepend(first);
  else
    delete first;
  if (inGroup)
    commands = {groupOf(QStringLiteral("G"), {groupOf(QStringLiteral("H"), commands)})};
  for (CommandBase* const added : commands)
    f.add(added);
  const auto kept = command->shared_from_this();
  command->begin();
  f.delegate->heard.clear();

  QVERIFY(shadowed ? f.manager->removeCommand(command) : f.manager->removeCommand(a));
  QCOMPARE(f.delegate->heard, QStringList{QStringLiteral("removed a")});
  QCOMPARE(f.manager->forgotten, QStringList{a});
  QVERIFY(!f.manager->runningCommand());
  QCOMPARE(f.heardBy(*command), 0);
  QCOMPARE(f.manager->findCommand(a), shadowed ? first : nullptr);
  QVERIFY(!f.manager->removeCommand(command) && !f.manager->removeCommand(d));
  QCOMPARE(f.delegate->heard.size(), 1);
}

} // namespace

/// What a command manager holds, finds, observes and tells its delegate.
class CmdMgrTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void whatAddingAnswers() {
    ManagerFixture f;
    QVERIFY(!f.manager->addCommand(nullptr));
    TestCommand nameless{QString()};
    try {
      f.manager->addCommand(&nameless);
      QFAIL("a command without an identifier was added");
    } catch (const std::logic_error& error) {
      QCOMPARE(error.what(), "A command id must be defined (with the COMMAND_ID macro)!");
    }
    TestCommand mine(a);
    CmdMgr unshared;
    QVERIFY_THROWS_EXCEPTION(std::bad_weak_ptr, unshared.addCommand(&mine));
    QVERIFY(!nameless.isShared() && !mine.isShared());
    QVERIFY(f.delegate->heard.isEmpty() && f.bag().count() == 0);

    int heardWhenAdded = -1;
    f.delegate->added = [&](CommandBase& command) {
      heardWhenAdded = f.heardBy(static_cast<TestCommand&>(command));
    };
    auto* const first = f.add(a);
    QCOMPARE(heardWhenAdded, 0); // the delegate is told before the manager observes
    auto* const second = new TestCommand(a);
    QVERIFY(!f.manager->addCommand(first));
    QCOMPARE(f.delegate->heard.size(), 1);
    QCOMPARE(f.manager->addCommand(second), second);
    QCOMPARE(f.manager->findCommand(a), first);
    QCOMPARE(f.heardBy(*first), 1);
    QCOMPARE(f.heardBy(*second), 1);
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
    f.delegate->heard.clear();
    QVERIFY(f.manager->removeCommand(child.get()));
    QVERIFY(!f.manager->findCommand(a) && child->holdingGroups().isEmpty());
    QCOMPARE(f.heardBy(*child), 0);
    QCOMPARE(f.delegate->heard, QStringList{QStringLiteral("removed a")});
    QVERIFY(!f.manager->removeCommand(child.get()));
  }

  void removalTellsAndStopsObserving() {
    for (const bool inGroup : {true, false}) {
      for (const bool shadowed : {true, false})
        removes(inGroup, shadowed);
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
