// SPDX-License-Identifier: MIT
#include "comparison.h"

#include <tqm_mesh_kernel/stepped_dispatcher.h>
#include <ui_base/commands/cmd_mgr.h>
#include <ui_base/commands/command_base.h>

#include <QGuiApplication>

#include <benchmark/benchmark.h>

#include <utility>
#include <vector>

using namespace Vela::UiBase;

namespace {

class PlainCommand : public CommandBase {
public:
  explicit PlainCommand(QString id) : CommandBase(nullptr), m_id(std::move(id)) { setText(m_id); }
  QString commandId() const override { return m_id; }
  bool onExecuteAsync(bool) override { return true; }

private:
  QString m_id;
};

/// Explains one of a thousand commands, all of which are disabled by some layers.
void explainUnder(benchmark::State& state, int layers) {
  Taren::Core::SteppedDispatcher dispatcher;
  const Taren::Core::ScopedDispatcher installed(dispatcher);
  const auto manager = Taren::Objects::createShared<CmdMgr>();
  for (int i = 0; i < 1000; ++i)
    manager->addCommand(new PlainCommand(QStringLiteral("Command%1").arg(i)));
  std::vector<ContextHold> holds;
  for (int i = 0; i < layers; ++i) {
    const auto holder = ContextHolder::running(QStringLiteral("Command%1").arg(i));
    holds.push_back(manager->holdContext(manager->disabledContext(), holder));
  }
  dispatcher.runAll();
  const QString id = QStringLiteral("Command500");
  for ([[maybe_unused]] auto _ : state)
    benchmark::DoNotOptimize(manager->explain(id));
  holds.clear();
  dispatcher.runAll();
}

void Explain_Enabled(benchmark::State& state) { explainUnder(state, 0); }
BENCHMARK(Explain_Enabled);

void Explain_Disabled(benchmark::State& state) { explainUnder(state, static_cast<int>(state.range(0))); }
BENCHMARK(Explain_Disabled)->Arg(1)->Arg(3);

} // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QGuiApplication application(argc, argv);
  using enum Vela::Benchmarks::Comparison::Kind;
  return Vela::Benchmarks::run(argc, argv,
                               {{"Explain_Disabled/1", "Explain_Enabled", 5000.0, ExtraTime},
                                {"Explain_Disabled/3", "Explain_Enabled", 5000.0, ExtraTime}});
}
