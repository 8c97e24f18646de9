// SPDX-License-Identifier: MIT
#include "commands_fixture.h"

#include <support/test_case.h>
#include <ui_base/commands/command_bag.h>

#include <algorithm>
#include <array>
#include <random>

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

  void sameObjectUnderANewIdentifierIsAccepted() {
    const auto command = createShared<TestCommand>(QStringLiteral("old"));
    CommandBag bag;
    QVERIFY(bag.addCommand(command));
    QVERIFY(bag.addCommand(createShared<TestCommand>(QStringLiteral("new"))));
    command->id = QStringLiteral("new");
    QVERIFY(bag.addCommand(command));
    QVERIFY(!bag.addCommand(command));
    QCOMPARE(bag.count(), 3);
    QCOMPARE(bag[QStringLiteral("old")], command.get());
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

  // A bag and a plain list go through the same random changes and must answer alike after each.
  void lookUpStaysRightThroughChanges() {
    std::mt19937 random(20240611);
    const auto below = [&random](int limit) { return static_cast<int>(random() % unsigned(limit)); };
    using Entry = std::pair<QString, std::shared_ptr<CommandBase>>;
    std::vector<std::shared_ptr<CommandBase>> commands;
    commands.reserve(24);
    for (int i = 0; i < 24; ++i)
      commands.push_back(createShared<TestCommand>(QString::number(i % 9)));

    CommandBag bag;
    std::vector<Entry> model;
    for (int step = 0; step < 3000; ++step) {
      const auto& command = commands[std::size_t(below(24))];
      const QString id = command->commandId();
      const auto standing =
          std::find_if(model.begin(), model.end(), [&](const Entry& e) { return e.second == command; });
      const auto first =
          std::find_if(model.begin(), model.end(), [&](const Entry& e) { return e.first == id; });
      const bool known = standing != model.end();
      switch (below(4)) {
      case 0:
        QCOMPARE(bag.addCommand(command), !known);
        if (!known)
          model.emplace_back(id, command);
        break;
      case 1: {
        const int position = below(int(model.size()) + 1);
        QCOMPARE(bag.insertCommand(position, command), !known);
        if (!known)
          model.emplace(model.begin() + position, id, command);
        break;
      }
      case 2:
        QCOMPARE(bag.removeCommand(id), first != model.end());
        if (first != model.end())
          model.erase(first);
        break;
      default:
        QCOMPARE(bag.removeCommand(command.get()), known);
        if (known)
          model.erase(standing);
      }
      if (step % 100 == 99)
        bag = CommandBag(bag);
      QVERIFY2(answersAlike(bag, model), qPrintable(QStringLiteral("step %1").arg(step)));
    }
  }

private:
  static bool answersAlike(const CommandBag& bag,
                           const std::vector<std::pair<QString, std::shared_ptr<CommandBase>>>& model) {
    const int count = int(model.size());
    bool alike = bag.count() == count;
    for (int i = 0; i < count; ++i)
      alike = alike && bag.commandAt(i) == model[std::size_t(i)].second.get();
    for (int i = 0; i < 10; ++i) {
      const QString id = QString::number(i);
      const auto found =
          std::find_if(model.begin(), model.end(), [&id](const auto& entry) { return entry.first == id; });
      const bool known = found != model.end();
      CommandBase* const command = known ? found->second.get() : nullptr;
      int index = -1;
      alike = alike && bag.hasCommand(id) == known && bag[id] == command &&
              bag.getCommand(id, index) == command && index == int(found - model.begin());
    }
    return alike;
  }
};

VELA_TEST_MAIN(CommandValuesTest)
#include "command_values_test.moc"
