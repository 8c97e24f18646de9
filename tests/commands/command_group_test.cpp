// SPDX-License-Identifier: MIT
#include "manager_fixture.h"

#include <support/test_case.h>
#include <ui_base/commands/cycle_checkable_command.h>
#include <ui_base/toolbars/tool_bar.h>
#include <ui_base/toolbars/tool_button.h>

#include <QActionGroup>
#include <QSignalSpy>

#include <random>

using namespace Ids;
using namespace Vela::UiBase;
using Taren::Objects::adoptShared;

namespace {

/// Children as text: ". *" enabled, "- +" disabled, the second of each checked.
std::shared_ptr<CommandGroup> groupFrom(const QString& text) {
  const auto group = adoptShared(groupOf(QStringLiteral("G"), {}));
  for (const QChar state : text) {
    auto* const child = checkableCommand(QString::number(group->commandBag().count()));
    group->addCommand(child, 0);
    child->setChecked(state == u'*' || state == u'+');
    child->setEnabled(state == u'*' || state == u'.');
  }
  return group;
}

QString textOf(const CommandGroup& group) {
  QString text;
  for (int i = 0; i < group.commandBag().count(); ++i) {
    const CommandBase& child = *group.commandBag().commandAt(i);
    text += child.isEnabled() ? (child.isChecked() ? u'*' : u'.') : (child.isChecked() ? u'+' : u'-');
  }
  return text;
}

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

/// Finds one command more than its bag holds.
class FarGroup : public CommandGroup {
public:
  FarGroup() : CommandGroup(QString(), QString(), QStringLiteral("Far")) {}
  bool hasCommand(const QString& id) const override { return id == far.id || CommandGroup::hasCommand(id); }
  CommandBase* getCommand(const QString& id) override {
    return id == far.id ? &far : CommandGroup::getCommand(id);
  }
  TestCommand far{QStringLiteral("far")};
};

} // namespace

/// What a group shows, holds and passes on, and how it is cycled.
class CommandGroupTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void groupIsCheckedWhileAChildIs() {
    for (const bool exclusive : {true, false}) {
      const auto group = groupFrom(QStringLiteral(".."));
      group->groupActionGroup()->setExclusive(exclusive);
      CommandBase* const first = group->commandBag().commandAt(0);
      CommandBase* const second = group->commandBag().commandAt(1);
      const QSignalSpy toggled(group.get(), &QAction::toggled);
      first->trigger();
      second->trigger();
      QVERIFY(group->isChecked() && first->isChecked() != exclusive);
      second->toggle();
      QCOMPARE(group->isChecked(), !exclusive);
      group->uncheckChildren(false);
      QVERIFY(!group->isChecked());
      QCOMPARE(toggled.count(), 2); // never off and on between two children
      group->addCommand(checkableCommand(b, true), 0);
      QVERIFY(group->isChecked());
      group->removeCommand(b);
      QVERIFY(!group->isChecked());
    }
  }

  void toolButtonFollowsTheGroup() {
    ManagerFixture f;
    auto* const group = f.add(groupOf(QStringLiteral("G"), {checkableCommand(a, true)}));
    ToolBar bar(nullptr, Qt::TopToolBarArea);
    auto* const bound = new ToolButton(group, &bar, nullptr);
    ToolButton own;
    own.setCheckable(true);
    for (ToolButton* const button : {bound, &own}) {
      group->setToolButton(button);
      QVERIFY(button->isChecked());
      f.manager->findCommand(a)->setEnabled(false); // nothing in it is enabled
      QVERIFY(!button->isEnabled() && group->isEnabled());
      f.manager->findCommand(a)->setEnabled(true);
      QVERIFY(button->isEnabled());
      f.manager->setContext(f.manager->disabledContext());
      f.apply();
      QVERIFY(!button->isEnabled());
      f.manager->resetContext();
      f.manager->findCommand(a)->setChecked(true);
      f.apply();
      QVERIFY(button->isEnabled() && !button->isChecked());
      f.manager->findCommand(a)->setChecked(true);
      QVERIFY(button->isChecked());
    }
    group->setToolButton(bound);
    delete bound;
    QVERIFY(!group->toolButton());
    group->setChecked(false);
  }

  void cycling() {
    const std::pair<const char*, const char*> rows[] = {{"...", "*.."}, {"*..", ".*."}, {"..*", "*.."},
                                                        {"-..", "-*."}, {"*-.", ".-*"}, {"-*-", "-.-"},
                                                        {"-+-", "--+"}, {"*", "."},     {"", ""}};
    for (const auto& [before, after] : rows) {
      auto group = groupFrom(QString::fromLatin1(before));
      CycleCheckableCommand cycle(nullptr, QKeySequence(Qt::Key_Tab), group.get());
      group->setEnabled(false);
      QVERIFY(!cycle.onExecute());
      QCOMPARE(textOf(*group), QString::fromLatin1(before));
      group->setEnabled(true);
      cycle.trigger();
      QCOMPARE(textOf(*group), QString::fromLatin1(after));
      group.reset();
      QVERIFY(!cycle.onExecute());
    }
  }

  void aGroupCannotHoldItself() {
    auto* const one = groupOf(QStringLiteral("One"), {});
    const std::unique_ptr<CommandGroup> outer(groupOf(QStringLiteral("Outer"), {one}));
    QVERIFY(!one->addCommand(outer.get(), 0)); // would hold itself; it is still ours
    QCOMPARE(outer->getCommandGroup(one->commandId()), one);
    QCOMPARE(outer->getCommandGroup(outer->commandId()), outer.get());
  }

  void groupsThatListenToEachOtherExcludeEachOther() {
    const auto one = groupFrom(QStringLiteral(".."));
    const auto two = groupFrom(QStringLiteral("*"));
    const char* const uncheck = SLOT(uncheckChildren(bool));
    QVERIFY(one->listenToTrigger(two.get(), uncheck) && two->listenToTrigger(one.get(), uncheck));
    QVERIFY(!one->listenToTrigger(two.get(), uncheck) && !one->listenToTrigger(nullptr, uncheck));
    one->commandBag().commandAt(1)->trigger();
    QCOMPARE(textOf(*one) + textOf(*two), QStringLiteral(".*."));
    two->commandBag().commandAt(0)->trigger();
    QCOMPARE(textOf(*one) + textOf(*two), QStringLiteral("..*"));
  }

  void ranksMoveWithTheirChildren() {
    const auto order = [](const CommandGroup& of) {
      QString ids;
      for (int i = 0; i < of.commandBag().count(); ++i)
        ids += of.commandBag().commandAt(i)->commandId();
      return ids;
    };
    const auto group = adoptShared(groupOf(QStringLiteral("G"), {}));
    for (const auto& [id, rank] : {std::pair(a, 2), std::pair(b, 1), std::pair(c, 2), std::pair(d, -1)})
      group->addCommand(new TestCommand(id), rank);
    QCOMPARE(order(*group), QStringLiteral("dbac"));
    group->setCommandRank(d, 2);
    QCOMPARE(order(*group), QStringLiteral("bacd"));
    group->removeCommand(c);
    const auto other = adoptShared(groupOf(QStringLiteral("H"), {new TestCommand(c), new TestCommand(b)}));
    other->absorbCommandGroup(group.get());
    QCOMPARE(order(*other) + QLatin1Char(' ') + order(*group), QStringLiteral("cbad b"));
    QVERIFY(group->getCommandRank(a) == 0 && other->getCommandRank(a) == 2);
  }

  void lookUpsFollowEveryChange() {
    std::mt19937 random(20240711);
    const auto below = [&random](qsizetype limit) { return static_cast<int>(random() % unsigned(limit)); };
    ManagerFixture f;
    QList<CommandGroup*> groups;
    for (const char* name : {"F", "G", "H"})
      groups.append(groupOf(QString::fromLatin1(name), {}));
    for (CommandGroup* const group : {groups.at(0), groups.at(2)})
      f.add(group);
    groups.at(0)->addCommand(groups.at(1), 0);
    auto* const far = new FarGroup;
    f.add(far);
    f.add(groupOf(QStringLiteral("Last"), {new TestCommand(far->far.id)})); // asked after the one before it
    for (int step = 0; step < 3000; ++step) {
      const QString id = QString::number(below(40));
      CommandGroup* const group = groups.at(below(groups.size()));
      switch (below(20)) {
      case 0:
        f.manager->addCommand(new TestCommand(id));
        break;
      case 1:
        group->addCommand(new TestCommand(id), below(3));
        break;
      case 2:
        group->removeCommand(id);
        break;
      case 3:
        f.manager->removeCommand(id);
        break;
      case 4: {
        CommandContext context{{far->far.id, {step % 2, 2}}};
        for (int i = 0; i < 40; i += 1 + below(3) * below(3))
          context.overwrite(QString::number(i), {step % 2, 2});
        f.manager->setContext(context);
        f.apply();
        for (auto entry = context.get().cbegin(); entry != context.get().cend(); ++entry) {
          const CommandBase* const first =
              entry.key() == far->far.id ? &far->far : firstOf(f.bag(), entry.key());
          QVERIFY(!first || first->isEnabled() == entry->enabled);
        }
        break;
      }
      default:
        QCOMPARE(f.manager->findCommand(id), firstOf(f.bag(), id));
      }
    }
    QCOMPARE(f.manager->findCommand(far->far.id), &far->far);
    QVERIFY(!f.manager->findCommand(d));
    f.manager->removeCommand(groupId(QStringLiteral("Last"))); // then no bag holds it, but it is saved too
    far->far.setEnabled(false);
    f.manager->pushContext({{far->far.id, {State::On, State::Keep}}});
    f.apply();
    QVERIFY(far->far.isEnabled());
    f.manager->popContext();
    f.apply();
    QVERIFY(!far->far.isEnabled());
  }
};

VELA_TEST_MAIN(CommandGroupTest)
#include "command_group_test.moc"
