// SPDX-License-Identifier: MIT
#include <support/test_case.h>
#include <ui_base/toolbars/pending_group_states.h>

#include <atomic>
#include <thread>
#include <vector>

using Vela::UiBase::PendingGroupStates;

class PendingGroupStatesTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void statesOfManyThreadsEndInTheLastOfEachGroup() {
    constexpr int threads = 8;
    PendingGroupStates pending;
    std::vector<QObject> groups(threads);
    std::vector<bool> inUse(threads, false);
    const auto apply = [&] {
      for (const auto& state : pending.takeLatest())
        inUse[static_cast<const QObject*>(state.group) - groups.data()] = state.began;
    };
    std::atomic<int> running = threads;
    std::vector<std::thread> workers;
    for (int i = 0; i < threads; ++i) {
      workers.emplace_back([&, i] {
        for (int event = 0; event <= 1000 + i; ++event)
          pending.append(&groups[i], event % 2 == 0);
        --running;
      });
    }
    while (running > 0)
      apply();
    for (std::thread& worker : workers)
      worker.join();
    apply();
    for (int i = 0; i < threads; ++i)
      QCOMPARE(bool(inUse[i]), i % 2 == 0);
  }
};

VELA_TEST_MAIN(PendingGroupStatesTest)
#include "pending_group_states_test.moc"
