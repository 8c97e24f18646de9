// SPDX-License-Identifier: MIT
#include "commands_fixture.h"

#include <support/test_case.h>
#include <ui_base/commands/command_bag.h>

#include <algorithm>
#include <array>

using namespace Vela::UiBase;
using Taren::Objects::createShared;

/// The values that carry commands and their states: State, CommandState, CommandContext, CommandBag.
class CommandValuesTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void keepLeavesWhatItMeets() {
    using Row = std::array<int, 6>; // a, b, a = b, a & b, a | b, a ^ b
    for (const auto& [a, b, assigned, anded, ored, xored] :
         {Row{0, 0, 0, 0, 0, 0}, Row{0, 1, 1, 0, 1, 1}, Row{0, 2, 0, 0, 0, 0}, Row{1, 0, 0, 0, 1, 1},
          Row{1, 1, 1, 1, 1, 0}, Row{1, 2, 1, 1, 1, 1}, Row{2, 0, 0, 0, 0, 0}, Row{2, 1, 1, 1, 1, 1},
          Row{2, 2, 2, 2, 2, 2}}) {
      const auto applied = [a = a, b = b](auto operation) {
        State left(a);
        operation(left, State(b));
        return valueOf(left);
      };
      QCOMPARE(applied([](State& l, State r) { l = r; }), assigned);
      QCOMPARE(applied([](State& l, State r) { l.overwrite(r); }), b);
      QCOMPARE(applied([](State& l, State r) { l &= r; }), anded);
      QCOMPARE(applied([](State& l, State r) { l |= r; }), ored);
      QCOMPARE(applied([](State& l, State r) { l ^= r; }), xored);
      QCOMPARE(State(a) == State(b), a == b);
      QCOMPARE(valueOf(!State(a)), a == 2 ? 2 : 1 - a);
    }
  }

  void contextEntriesMergeOrAreOverwritten() {
    CommandContext context{{"a", {1, 0}}, {"b", {0, 0}}};
    context.update(QStringLiteral("a"), {2, 1});
    context.update(QStringLiteral("c"), {2, 1});
    QCOMPARE(textOf(context), QStringLiteral("a=1,1 b=0,0 c=0,1"));
    CommandContext copy(context);
    copy.update({1, 2});
    QCOMPARE(textOf(copy), QStringLiteral("a=1,1 b=1,0 c=1,1"));
    copy.overwrite(QStringLiteral("a"), {2, 2});
    QCOMPARE(textOf(copy), QStringLiteral("a=2,2 b=1,0 c=1,1"));
    copy.overwrite({2, 0});
    QCOMPARE(textOf(copy), QStringLiteral("a=2,0 b=2,0 c=2,0"));
    QCOMPARE(textOf(context), QStringLiteral("a=1,1 b=0,0 c=0,1"));
  }

  void contextsAreNegatedAndCombined() {
    CommandContext a{{"both", {1, 2}}, {"mine", {0, 2}}};
    const CommandContext b{{"both", {0, 1}}, {"yours", {1, 1}}};
    QCOMPARE(textOf(!a), QStringLiteral("both=0,2 mine=1,2"));
    QCOMPARE(textOf(a & b), QStringLiteral("both=0,1 mine=0,2"));
    QCOMPARE(textOf(a | b), QStringLiteral("both=1,1 mine=0,2"));
    QCOMPARE(textOf(b & a), QStringLiteral("both=0,1 yours=1,1"));
    QCOMPARE(textOf(a), QStringLiteral("both=1,2 mine=0,2"));
    a &= b;
    QCOMPARE(textOf(a), QStringLiteral("both=0,1 mine=0,2"));
    const CommandContext& itself = a;
    a |= itself;
    QCOMPARE(textOf(a), QStringLiteral("both=0,1 mine=0,2"));
  }

  void plainPointerHasOneOwner() {
    int destroyed = 0;
    QObject parent;
    auto* const command = new TestCommand(QStringLiteral("a"));
    command->atEnd = [&destroyed] { ++destroyed; };
    command->setParent(&parent);
    {
      CommandBag one;
      CommandBag other;
      QVERIFY(one.addCommand(command) && other.addCommand(command));
      QVERIFY(!command->parent());
      command->setParent(&parent);
      QVERIFY(!command->parent());
      one.clear();
      QVERIFY(!one.hasCommand(QStringLiteral("a")));
      QCOMPARE(destroyed, 0);
    }
    QCOMPARE(destroyed, 1);
  }

  void theFirstOfAnIdentifierIsFoundAtItsPosition() {
    QList<std::shared_ptr<CommandBase>> commands;
    for (const char* const id : {"a", "b", "a", "b"})
      commands.append(createShared<TestCommand>(QString(id)));
    CommandBag bag;
    const auto answers = [&bag, &commands](const char* id) {
      int index = -1;
      const CommandBase* const found = bag.getCommand(id, index);
      const auto isIt = [found](const auto& command) { return command.get() == found; };
      const auto at = std::find_if(commands.cbegin(), commands.cend(), isIt) - commands.cbegin();
      return QStringLiteral("%1@%2").arg(found ? int(at) : -1).arg(index);
    };
    QCOMPARE(answers("a"), "-1@0");
    bag.addCommand(commands[2]);
    bag.addCommand(commands[3]);
    QCOMPARE(answers("b") + answers("c"), "3@1-1@2");
    bag.insertCommand(-5, commands[1]);
    bag.insertCommand(9, commands[0]);
    QCOMPARE(answers("a") + answers("b"), "2@11@0");
    const CommandBag copy(bag);
    QVERIFY(bag.removeCommand("b") && bag.removeCommand(commands[2].get()));
    QCOMPARE(answers("a") + answers("b"), "0@13@0");
    QVERIFY(!bag.removeCommand(commands[2].get()) && !bag.removeCommand("c"));
    bag = copy;
    QCOMPARE(answers("a") + answers("b"), "2@11@0");
    QVERIFY(!bag.commandAt(-1) && !bag.commandAt(4) && bag.commandAt(3) == commands[0].get());
  }
};

VELA_TEST_MAIN(CommandValuesTest)
#include "command_values_test.moc"
