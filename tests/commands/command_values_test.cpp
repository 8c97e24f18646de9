// SPDX-License-Identifier: MIT
#include "commands_fixture.h"

#include <support/test_case.h>
#include <ui_base/commands/command_bag.h>

#include <array>

using namespace Vela::UiBase;

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
      QCOMPARE(applied([](State& l, State r) { l &= r; }), anded);
      QCOMPARE(applied([](State& l, State r) { l |= r; }), ored);
      QCOMPARE(applied([](State& l, State r) { l ^= r; }), xored);
      QCOMPARE(valueOf(!State(a)), a == 2 ? 2 : 1 - a);
    }
  }

  void contextsCombineByIdentifier() {
    using Entries = QMap<QString, CommandState>;
    const CommandContext left{{"a", {1, 2}}, {"b", {0, 1}}};
    const CommandContext right{{"a", {0, 1}}, {"c", {1, 1}}};
    QCOMPARE((!left).get(), (Entries{{"a", {0, 2}}, {"b", {1, 0}}}));
    QCOMPARE((left & right).get(), (Entries{{"a", {0, 1}}, {"b", {0, 1}}}));
    QCOMPARE((left | right).get(), (Entries{{"a", {1, 1}}, {"b", {0, 1}}}));
    CommandContext changed(left);
    changed.overwrite(right);
    QCOMPARE(changed.get(), (Entries{{"a", {0, 1}}, {"b", {0, 1}}, {"c", {1, 1}}}));
    changed.update({2, 0});
    QCOMPARE(changed.get(), (Entries{{"a", {0, 0}}, {"b", {0, 0}}, {"c", {1, 0}}}));
    changed.overwrite({2, 1});
    changed.update(QStringLiteral("a"), {0, 2});
    QCOMPARE(changed.get(), (Entries{{"a", {0, 1}}, {"b", {2, 1}}, {"c", {2, 1}}}));
    QCOMPARE(QDebug::toString(left),
             "CommandContext(\"a\": CommandState(on, keep), \"b\": CommandState(off, on))");
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
};

VELA_TEST_MAIN(CommandValuesTest)
#include "command_values_test.moc"
