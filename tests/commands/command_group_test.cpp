// SPDX-License-Identifier: MIT
#include "manager_fixture.h"

#include <support/test_case.h>
#include <ui_base/commands/cycle_checkable_command.h>
#include <ui_base/toolbars/tool_button.h>

#include <random>

using namespace Ids;
using namespace Vela::UiBase;
using Taren::Objects::adoptShared;

namespace {

/// A bag before the groups in it, and these in order; by looking at one command after the other.
CommandBase* firstOf(const CommandBag& bag, const QString& id) {
  for (int i = 0; i < bag.count(); ++i) {
    if (bag.commandAt(i)->commandId() == id)
      return bag.commandAt(i);
  }
  CommandBase* found = nullptr;
  for (int i = 0; i < bag.count() && !found; ++i) {
    if (const auto* const group = dynamic_cast<CommandGroup*>(bag.commandAt(i)))
      found = firstOf(group->commandBag(), id);
  }
  return found;
}

class BeginCounter : public QObject, public CommandStateProtocol {
public:
  void commandBeganExecuting(CommandBase*, bool) override { ++begun; }
  int begun = 0;
};

} // namespace

/// What a group shows, holds and passes on, and how it is cycled.
class CommandGroupTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void toolButtonFollowsTheGroup() {
    ManagerFixture f;
    auto* const child = checkableCommand(a, true);
    auto* const group = f.add(groupOf(QStringLiteral("G"), {child}));
    auto button = std::make_unique<ToolButton>();
    button->setCheckable(true);
    group->setToolButton(button.get());
    QVERIFY(button->isChecked());
    child->setEnabled(false); // nothing in it is enabled
    QVERIFY(!button->isEnabled() && group->isEnabled());
    child->setEnabled(true);
    QVERIFY(button->isEnabled());
    group->setEnabled(false);
    QVERIFY(!button->isEnabled());
    group->setEnabled(true);
    QVERIFY(button->isEnabled());
    f.manager->setContext(f.manager->inactiveContext());
    f.apply();
    QVERIFY(!button->isChecked());
    button.reset();
    QVERIFY(!group->toolButton());
    child->setChecked(true);
  }

  void observersHearWhatIsAddedWhileTheyObserve() {
    ManagerFixture f;
    QObject owner;
    auto* const guarded = new BeginCounter;
    guarded->setParent(&owner);
    const auto weak = std::make_shared<BeginCounter>();
    const auto group = adoptShared(groupOf(QStringLiteral("G"), {}));
    const auto begun = [&](QLatin1String id) { // of a child and of the group
      if (!group->hasCommand(id))
        group->addCommand(new TestCommand(id), 0);
      group->getCommand(id)->onExecute();
      group->onExecute();
      f.apply(); // guarded ones are told by the dispatcher
      return std::pair(std::exchange(guarded->begun, 0), std::exchange(weak->begun, 0));
    };
    const auto observe = [&](CommandGroup& observed) {
      observed.addObserver(guarded);
      observed.addObserver(weak, false);
    };
    observe(*group);
    QCOMPARE(begun(a), std::pair(2, 2));
    group->removeObserver(guarded);
    QCOMPARE(begun(b), std::pair(0, 2));
    group->removeObserver(weak);
    QCOMPARE(begun(c), std::pair(0, 0));
    QCOMPARE(begun(a), std::pair(0, 0));
    const auto other = adoptShared(groupOf(QStringLiteral("H"), {group->getCommand(b)}));
    observe(*other);
    for (const bool all : {false, true}) {
      observe(*group);
      QVERIFY(begun(a) == std::pair(2, 2) && begun(b) == std::pair(2, 2));
      if (all) {
        group->removeAllObservers();
      } else {
        group->removeObserver(guarded);
        group->removeObserver(weak);
      }
      QCOMPARE(begun(a), std::pair(0, 0));
      QCOMPARE(begun(b), std::pair(1, 1)); // of the other group
    }
  }

  void cyclingChecksTheNextThatIsEnabled() {
    auto group = adoptShared(groupOf("G", {checkableCommand(a), checkableCommand(b), checkableCommand(c)}));
    group->getCommand(b)->setEnabled(false);
    CycleCheckableCommand cycle(nullptr, QKeySequence(Qt::Key_Tab), group.get());
    for (const QLatin1String next : {a, c, a}) {
      cycle.trigger();
      for (const QLatin1String id : {a, b, c})
        QCOMPARE(group->getCommand(id)->isChecked(), id == next);
    }
    group->setEnabled(false);
    QVERIFY(!cycle.onExecute() && group->getCommand(a)->isChecked());
    group.reset();
    QVERIFY(!cycle.onExecute());
    CommandGroup empty{QString(), QString(), QString()};
    QVERIFY(!CycleCheckableCommand(nullptr, {}, &empty).onExecute());
  }

  void ranksMoveWithTheirChildren() {
    const auto order = [](const CommandGroup& of) {
      QString ids;
      for (int i = 0; i < of.commandBag().count(); ++i)
        ids += of.commandBag().commandAt(i)->commandId();
      return ids;
    };
    const auto group = adoptShared(groupOf(QStringLiteral("G"), {}));
    for (const auto& [id, rank] : {std::pair(a, 2), std::pair(b, 1), std::pair(d, -1)})
      group->addCommand(new TestCommand(id), rank);
    QCOMPARE(order(*group), QStringLiteral("dba"));
    group->setCommandRank(d, 2);
    QCOMPARE(order(*group), QStringLiteral("bad"));
    const auto other = adoptShared(groupOf(QStringLiteral("H"), {new TestCommand(c), new TestCommand(b)}));
    other->absorbCommandGroup(group.get());
    QCOMPARE(order(*other) + QLatin1Char(' ') + order(*group), QStringLiteral("cbad b"));
    QCOMPARE(other->getCommandRank(a), 2);
    QVERIFY(!group->addCommand(group.get(), 0)); // would hold itself
    const auto again = adoptShared<CommandBase>(new TestCommand(b));
    connect(group.get(), &CommandGroup::childrenChanged, group.get(), [&] { group->addCommand(again, 5); });
    QVERIFY(!group->addCommand(again, 5)); // as the other one moves, it is added
    QCOMPARE(again->holdingGroups().size(), 1);
  }

  void groupAnswersForWhatIsBelowIt() {
    auto* const inner = groupOf(QStringLiteral("H"), {checkableCommand(b)});
    auto* const child = checkableCommand(a, true);
    const auto group = adoptShared(groupOf(QStringLiteral("G"), {child, inner}));
    QVERIFY(group->hasCommand(b) && !group->hasCommand(c) && !group->getCommand(c));
    QVERIFY(!group->getCommandGroup(c) && !group->removeCommand(QString(c)) &&
            !group->removeCommand(&*group));
    QVERIFY(!group->addCommand(child, 1) && !inner->addCommand(group.get(), 0) &&
            !group->addCommand(std::shared_ptr<CommandBase>(), 0));
    for (const auto& [id, holder] :
         {std::pair(QString(b), inner), std::pair(QString(a), group.get()),
          std::pair(group->commandId(), group.get()), std::pair(inner->commandId(), inner)})
      QCOMPARE(group->getCommandGroup(id), holder);
    QCOMPARE(group->getCommandRank(a), 0);
    const QMap<QString, CommandState> states{
        {a, {1, 1}}, {b, {1, 0}}, {group->commandId(), {1, 1}}, {inner->commandId(), {1, 0}}};
    QCOMPARE(group->commandContext().get(), states);
    for (int i = 0; i < 2; ++i)
      group->addAttachedCommandGroupName(QStringLiteral("x"));
    QCOMPARE(child->attachedCommandGroupNames() + group->attachedCommandGroupNames(),
             QStringList({"x", "x"}));
    group->removeAttachedCommandGroupName(QStringLiteral("x"));
    QVERIFY(child->attachedCommandGroupNames().isEmpty() && group->attachedCommandGroupName().isEmpty());
    QSignalSpy told(group.get(), &CommandGroup::childToBeTriggered);
    group->uncheckChildren(true);
    QVERIFY(told.isEmpty() && !child->isChecked() && !group->isChecked());
    group->setChecked(true); // though nothing in it is
    group->uncheckChildren(true);
    QVERIFY(!group->isChecked());
    QVERIFY(group->listenToTrigger(inner, SLOT(uncheckChildren(bool))));
    QVERIFY(!group->listenToTrigger(nullptr, SLOT(uncheckChildren(bool))) &&
            !group->listenToTrigger(inner, nullptr));
    child->trigger();
    QVERIFY(told.count() > 0 && child->isChecked() && group->isChecked());
    inner->getCommand(b)->trigger();
    QVERIFY(!child->isChecked());
    const auto last = adoptShared(groupOf(QStringLiteral("I"), {child}));
    QVERIFY(child->commandGroup() == last.get() && child->actionGroup() == last->groupActionGroup());
    QVERIFY(last->removeCommand(child));
    QSignalSpy late(last.get(), &CommandGroup::childToBeTriggered);
    child->toggle();
    QVERIFY(late.isEmpty());
    QVERIFY(child->commandGroup() == group.get() && child->actionGroup() == group->groupActionGroup());
  }

  void singleCommandIsWrapped() {
    auto* const command = new TestCommand(a);
    QVERIFY(!command->isAttached() && !command->isPaidFeature() &&
            !command->isExecutionNotificationEnabled());
    const auto group = adoptShared(CommandGroup::WrapSingleCmdIntoVirtualCmdGroup(command, 3, "W", "base"));
    QVERIFY(group->isVirtualGroup() && group->getCommandRank(a) == 3 && group->getCommand(a) == command);
    QCOMPARE(group->baseGroupName() + command->baseGroupName(), "basebase");
  }

  void bagsAnswerByPlaceAndByName() {
    CommandBag bag;
    const auto first = adoptShared<CommandBase>(new TestCommand(a));
    const auto twin = adoptShared<CommandBase>(new TestCommand(a));
    QVERIFY(bag.addCommand(first) && bag.insertCommand(-1, twin) && !bag.addCommand(first));
    QVERIFY(bag.addCommand(groupOf(QStringLiteral("G"), {})) &&
            !bag.addCommand(std::shared_ptr<CommandBase>()));
    int index = -1;
    QVERIFY(bag.getCommand(a, index) == twin.get() && index == 0 && bag.hasCommand(a, index) && index == 0);
    QVERIFY(!bag.getCommand(b, index) && index == 3 && !bag.hasCommand(b, index) && !bag.commandAt(-1));
    QVERIFY(!bag.commandAt(3) && !bag.sharedCommandAt(3) && bag.sharedCommandAt(1) == first);
    QCOMPARE(bag.groups().size(), 1);
    CommandBag copy;
    QVERIFY(copy.addCommand(new TestCommand(b)) && copy.hasCommand(b, index) && copy.addCommand(first));
    QVERIFY(copy.getCommand(a, index) == first.get() && index == 1);
    const CommandBag& same = copy = bag;
    copy = same;
    QVERIFY(copy.getCommand(a, index) == twin.get() && index == 0 && copy.getCommand(a) == twin.get());
    QVERIFY(!copy.hasCommand(b) && copy.groups() == bag.groups());
    QVERIFY(copy.insertCommand(1, adoptShared(groupOf(QStringLiteral("H"), {}))));
    QVERIFY(copy.groups().size() == 2 && copy.groups().constFirst()->objectName() == "H");
    QVERIFY(bag.removeCommand(twin.get()) && !bag.removeCommand(twin.get()) && !bag.contains(twin.get()));
    QVERIFY(bag.getCommand(a) == first.get() && bag.contains(first.get()) && !bag.removeCommand(QString(b)));
    bag.removeCommand(groupId(QStringLiteral("G")));
    QVERIFY(bag.groups().isEmpty() && bag.removeCommand(QString(a)) && !bag.hasCommand(a));
    QCOMPARE(bag.count(), 0);
  }

  void lookUpsFollowEveryChange() {
    std::mt19937 random(20240711);
    const auto below = [&random](qsizetype limit) { return static_cast<int>(random() % unsigned(limit)); };
    ManagerFixture f;
    QList<CommandGroup*> groups;
    for (const char* name : {"F", "G"})
      groups.append(groupOf(QString::fromLatin1(name), {}));
    class Own : public CommandGroup { // who knows where it looks
      using CommandGroup::CommandGroup;
    };
    groups.append(new Own(QString(), QString(), QStringLiteral("H")));
    for (CommandGroup* const group : {groups.at(0), groups.at(2)})
      f.add(group);
    groups.at(0)->addCommand(groups.at(1), 0);
    for (int step = 0; step < 3000; ++step) {
      const QString id = QString::number(below(40));
      CommandGroup* const group = groups.at(below(groups.size()));
      const int what = below(20);
      if (what == 0) {
        f.manager->addCommand(new TestCommand(id));
      } else if (what == 1) {
        group->addCommand(new TestCommand(id), below(3));
      } else if (what == 2) {
        group->removeCommand(id);
      } else if (what == 3) {
        f.manager->removeCommand(id);
      } else if (what > 4) {
        QCOMPARE(f.manager->findCommand(id), firstOf(f.bag(), id));
      } else {
        CommandContext context;
        for (int i = 0; i < 40; i += 1 + below(3) * below(3))
          context.overwrite(QString::number(i), {step % 2, 2});
        f.manager->setContext(context);
        f.apply();
        for (auto entry = context.get().cbegin(); entry != context.get().cend(); ++entry) {
          const CommandBase* const first = firstOf(f.bag(), entry.key());
          QVERIFY(!first || first->isEnabled() == entry->enabled);
        }
      }
    }
  }
};

VELA_TEST_MAIN(CommandGroupTest)
#include "command_group_test.moc"
