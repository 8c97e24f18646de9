// SPDX-License-Identifier: MIT
#include "comparison.h"

#include <tqm_mesh_kernel/stepped_dispatcher.h>
#include <ui_base/commands/cmd_mgr.h>
#include <ui_base/commands/command_base.h>

#include <QGuiApplication>
#include <QHash>

#include <benchmark/benchmark.h>

#include <vector>

using namespace Vela::UiBase;

namespace {

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
    ids.append(QStringLiteral("Vela::Workbench::Command%1").arg(i));
  return ids;
}

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
  const auto manager = Taren::Objects::createShared<CmdMgr>();
  for (const QString& id : ids)
    manager->addCommand(new PlainCommand(id));
  measure(state, ids, [&manager](const QString& id) { return manager->findCommand(id); });
}
BENCHMARK(LookUp_Manager)->Arg(100)->Arg(1000)->Arg(10000);

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

} // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QGuiApplication application(argc, argv);
  std::vector<Vela::Benchmarks::Comparison> comparisons;
  for (const std::string count : {"/100", "/1000", "/10000"}) {
    comparisons.push_back({"LookUp_Bag" + count, "LookUp_QHash" + count, 1.5});
    comparisons.push_back({"LookUp_Manager" + count, "LookUp_QHash" + count, 1.5});
  }
  return Vela::Benchmarks::run(argc, argv, comparisons);
}
