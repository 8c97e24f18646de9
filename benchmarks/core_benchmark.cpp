// SPDX-License-Identifier: MIT
#include "comparison.h"

#include <ui_base/commands/command_base.h>

#include <QCoreApplication>

#include <benchmark/benchmark.h>

#include <memory>
#include <vector>

using Vela::UiBase::CommandBase;
using Vela::UiBase::CommandStateProtocol;

namespace {

// How many broadcasts the event loop finds when it turns.
constexpr int burst = 256;

int heard = 0;

class Observer : public CommandStateProtocol {
public:
  void commandBegan(CommandBase*) override { ++heard; }
};

class GuardedObserver : public QObject, public CommandStateProtocol {
public:
  using QObject::QObject;
  void commandBegan(CommandBase*) override { ++heard; }
};

class Subject : public Taren::Core::Broadcaster<CommandStateProtocol> {
public:
  void announce() {
    broadcast([](CommandStateProtocol* observer) { observer->commandBegan(nullptr); });
  }
};

class Sender : public QObject {
  Q_OBJECT
Q_SIGNALS:
  void began(Vela::UiBase::CommandBase* command);
};

class Receiver : public QObject {
  Q_OBJECT
public Q_SLOTS:
  void onBegan(Vela::UiBase::CommandBase*) { ++heard; }
};

template <class Announce>
void measure(benchmark::State& state, int bursts, const Announce& announce) {
  for (auto _ : state) {
    for (int i = 0; i < bursts; ++i)
      announce();
    QCoreApplication::sendPostedEvents();
  }
  benchmark::DoNotOptimize(heard);
  state.SetItemsProcessed(state.iterations() * bursts);
}

int burstFor(const benchmark::State& state) { return state.range(0) >= 1000 ? 16 : burst; }

void Broadcast_Synchronous(benchmark::State& state) {
  Subject subject;
  std::vector<std::shared_ptr<Observer>> observers;
  for (int i = 0; i < state.range(0); ++i) {
    observers.push_back(std::make_shared<Observer>());
    subject.addObserver(observers.back(), false);
  }
  measure(state, burstFor(state), [&] { subject.announce(); });
}
BENCHMARK(Broadcast_Synchronous)->Arg(1)->Arg(10)->Arg(1000);

void Broadcast_Guarded(benchmark::State& state) {
  Subject subject;
  QObject parent;
  for (int i = 0; i < state.range(0); ++i)
    subject.addObserver(new GuardedObserver(&parent));
  measure(state, burstFor(state), [&] { subject.announce(); });
}
BENCHMARK(Broadcast_Guarded)->Arg(1)->Arg(10)->Arg(1000);

void DirectConnection(benchmark::State& state) {
  Sender sender;
  std::vector<std::unique_ptr<Receiver>> receivers;
  for (int i = 0; i < state.range(0); ++i) {
    receivers.push_back(std::make_unique<Receiver>());
    QObject::connect(&sender, &Sender::began, receivers.back().get(), &Receiver::onBegan,
                     Qt::DirectConnection);
  }
  measure(state, burstFor(state), [&] { Q_EMIT sender.began(nullptr); });
}
BENCHMARK(DirectConnection)->Arg(1)->Arg(10)->Arg(1000);

} // namespace

int main(int argc, char** argv) {
  const QCoreApplication application(argc, argv);
  return Vela::Benchmarks::run(argc, argv,
                               {{"Broadcast_Synchronous/1", "DirectConnection/1", 1.7},
                                {"Broadcast_Synchronous/10", "DirectConnection/10", 1.1},
                                {"Broadcast_Synchronous/1000", "DirectConnection/1000", 0.9},
                                {"Broadcast_Guarded/1000", "DirectConnection/1000", 0.25}});
}

#include "core_benchmark.moc"
