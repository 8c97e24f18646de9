// SPDX-License-Identifier: MIT
#include "comparison.h"

#include <tqm_mesh_kernel/stepped_dispatcher.h>
#include <ui_base/commands/cmd_mgr.h>
#include <ui_base/commands/command_group.h>

#include <QAction>
#include <QGuiApplication>
#include <QHash>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <memory>
#include <utility>
#include <vector>

using namespace Vela::UiBase;

namespace {

constexpr qsizetype groupSize = 50;

class PlainCommand : public CommandBase {
public:
  explicit PlainCommand(QString id) : CommandBase(nullptr), m_id(std::move(id)) {}
  QString commandId() const override { return m_id; }
  bool onExecuteAsync(bool) override { return true; }

private:
  QString m_id;
};

QList<QString> identifiers(qsizetype count) {
  QList<QString> ids;
  for (qsizetype i = 0; i < count; ++i)
    ids.append(QStringLiteral("Vela::Workbench::Command%1").arg(i, 5, 10, QLatin1Char('0')));
  return ids;
}

/// A manager with plain commands, at the top level or in groups.
class Registry {
public:
  Registry(const QList<QString>& ids, bool grouped) {
    CommandGroup* group = nullptr;
    for (const QString& id : ids) {
      commands.push_back(new PlainCommand(id));
      if (!grouped) {
        manager->addCommand(commands.back());
        continue;
      }
      if (!group || group->commandBag().count() == groupSize)
        manager->addCommand(group = new CommandGroup({}, {}, id));
      group->addCommand(commands.back(), 0);
    }
    dispatcher.runAll();
  }

  Taren::Core::SteppedDispatcher dispatcher;
  Taren::Core::ScopedDispatcher installed{dispatcher};
  std::shared_ptr<CmdMgr> manager = Taren::Objects::createShared<CmdMgr>();
  std::vector<CommandBase*> commands; // owned by the manager
};

template <class LookUp>
void measure(benchmark::State& state, const QList<QString>& ids, const LookUp& lookUp) {
  qsizetype next = 0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(lookUp(ids[next]));
    next = next + 1 == ids.size() ? 0 : next + 1;
  }
  state.SetItemsProcessed(state.iterations());
}

void LookUp_Bag(benchmark::State& state) {
  const QList<QString> ids = identifiers(state.range(0));
  CommandBag bag;
  for (const QString& id : ids)
    bag.addCommand(new PlainCommand(id));
  measure(state, ids, [&bag](const QString& id) { return bag.getCommand(id); });
}
BENCHMARK(LookUp_Bag)->Arg(100)->Arg(1000)->Arg(10000);

void LookUp_Manager(benchmark::State& state) {
  const QList<QString> ids = identifiers(state.range(0));
  const Registry registry(ids, false);
  measure(state, ids, [&registry](const QString& id) { return registry.manager->findCommand(id); });
}
BENCHMARK(LookUp_Manager)->Arg(100)->Arg(1000)->Arg(10000);

void LookUp_Groups(benchmark::State& state) {
  const QList<QString> ids = identifiers(state.range(0));
  const Registry registry(ids, true);
  measure(state, ids, [&registry](const QString& id) { return registry.manager->findCommand(id); });
}
BENCHMARK(LookUp_Groups)->Arg(100)->Arg(1000)->Arg(10000);

// A command joins and leaves a group before each look-up, so that no two find the registry the same.
void LookUpWhileAdding_Groups(benchmark::State& state) {
  const QList<QString> ids = identifiers(state.range(0));
  const Registry registry(ids, true);
  auto* const group = static_cast<CommandGroup*>(std::as_const(*registry.manager).commandBag().commandAt(0));
  const auto guest = Taren::Objects::adoptShared<CommandBase>(new PlainCommand(QStringLiteral("guest")));
  bool joins = true;
  measure(state, ids, [&](const QString& id) {
    joins ? void(group->addCommand(guest, 0)) : void(group->removeCommand(guest->commandId()));
    joins = !joins;
    return registry.manager->findCommand(id);
  });
}
BENCHMARK(LookUpWhileAdding_Groups)->Arg(10000);

void Miss_Groups(benchmark::State& state) {
  const Registry registry(identifiers(state.range(0)), true);
  const QList<QString> unknown{QStringLiteral("Vela::Workbench::Unknown")};
  measure(state, unknown, [&registry](const QString& id) { return registry.manager->findCommand(id); });
}
BENCHMARK(Miss_Groups)->Arg(10000);

void Miss_AskEachGroup(benchmark::State& state) {
  const Registry registry(identifiers(state.range(0)), true);
  const QList<CommandGroup*> groups = std::as_const(*registry.manager).commandBag().groups();
  const QList<QString> unknown{QStringLiteral("Vela::Workbench::Unknown")};
  measure(state, unknown, [&groups](const QString& id) {
    return std::any_of(groups.cbegin(), groups.cend(),
                       [&id](const CommandGroup* group) { return group->hasCommand(id); });
  });
}
BENCHMARK(Miss_AskEachGroup)->Arg(10000);

void LookUp_QHash(benchmark::State& state) {
  const QList<QString> ids = identifiers(state.range(0));
  QHash<QString, std::shared_ptr<CommandBase>> hash;
  for (const QString& id : ids)
    hash.insert(id, Taren::Objects::adoptShared<CommandBase>(new PlainCommand(id)));
  measure(state, ids, [&hash](const QString& id) {
    const auto found = hash.constFind(id);
    return found == hash.cend() ? nullptr : found->get();
  });
}
BENCHMARK(LookUp_QHash)->Arg(100)->Arg(1000)->Arg(10000);

CommandContext contextOf(const QList<QString>& ids, bool enabled) {
  CommandContext context;
  for (const QString& id : ids)
    context.overwrite(id, {State(enabled), State::Keep});
  return context;
}

void apply(benchmark::State& state, bool grouped, bool changes) {
  const QList<QString> ids = identifiers(state.range(0));
  Registry registry(ids, grouped);
  const CommandContext contexts[] = {contextOf(ids, !changes), contextOf(ids, true)};
  int next = 0;
  for (auto _ : state) {
    registry.manager->setContext(contexts[next]);
    registry.dispatcher.runAll();
    next = 1 - next;
  }
  state.SetItemsProcessed(state.iterations() * ids.size());
}

void Apply_AllChange(benchmark::State& state) { apply(state, false, true); }
BENCHMARK(Apply_AllChange)->Arg(1000)->Arg(10000);

void Apply_AllChangeInGroups(benchmark::State& state) { apply(state, true, true); }
BENCHMARK(Apply_AllChangeInGroups)->Arg(1000)->Arg(10000);

void Apply_NoneChanges(benchmark::State& state) { apply(state, false, false); }
BENCHMARK(Apply_NoneChanges)->Arg(1000)->Arg(10000);

void Apply_NoneChangesInGroups(benchmark::State& state) { apply(state, true, false); }
BENCHMARK(Apply_NoneChangesInGroups)->Arg(1000)->Arg(10000);

template <class Actions>
void setAllEnabled(benchmark::State& state, const Actions& actions) {
  bool enabled = false;
  for (auto _ : state) {
    for (const auto& action : actions)
      action->setEnabled(enabled);
    enabled = !enabled;
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}

void BareLoop(benchmark::State& state) {
  setAllEnabled(state, Registry(identifiers(state.range(0)), false).commands);
}
BENCHMARK(BareLoop)->Arg(1000)->Arg(10000);

// Each tells its group.
void BareLoop_InGroups(benchmark::State& state) {
  setAllEnabled(state, Registry(identifiers(state.range(0)), true).commands);
}
BENCHMARK(BareLoop_InGroups)->Arg(1000)->Arg(10000);

void BareLoop_PlainActions(benchmark::State& state) {
  std::vector<std::unique_ptr<QAction>> actions;
  for (qsizetype i = 0; i < state.range(0); ++i)
    actions.push_back(std::make_unique<QAction>());
  setAllEnabled(state, actions);
}
BENCHMARK(BareLoop_PlainActions)->Arg(1000)->Arg(10000);

} // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QGuiApplication application(argc, argv);
  std::vector<Vela::Benchmarks::Comparison> comparisons;
  for (const std::string& count : {std::string("/100"), std::string("/1000"), std::string("/10000")}) {
    comparisons.push_back({"LookUp_Bag" + count, "LookUp_QHash" + count, 1.5});
    comparisons.push_back({"LookUp_Manager" + count, "LookUp_QHash" + count, 1.5});
    comparisons.push_back({"LookUp_Groups" + count, "LookUp_QHash" + count, 1.5});
  }
  comparisons.push_back({"LookUp_Groups/10000", "LookUp_Groups/1000"});
  comparisons.push_back({"LookUpWhileAdding_Groups/10000", "Miss_AskEachGroup/10000"});
  comparisons.push_back({"Miss_Groups/10000", "Miss_AskEachGroup/10000", 1.0});
  for (const std::string& count : {std::string("/1000"), std::string("/10000")}) {
    comparisons.push_back({"Apply_AllChange" + count, "BareLoop" + count, 1.7});
    comparisons.push_back({"Apply_AllChangeInGroups" + count, "BareLoop_InGroups" + count, 1.7});
    comparisons.push_back({"BareLoop" + count, "BareLoop_PlainActions" + count});
    comparisons.push_back({"Apply_NoneChanges" + count, "BareLoop" + count});
    comparisons.push_back({"Apply_NoneChangesInGroups" + count, "BareLoop_InGroups" + count});
  }
  return Vela::Benchmarks::run(argc, argv, comparisons);
}
