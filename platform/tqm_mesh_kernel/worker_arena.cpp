// SPDX-License-Identifier: MIT
#include "worker_arena.h"

#include "main_thread_queue.h"

#include <algorithm>
#include <thread>

namespace Taren::Core {

namespace {

thread_local bool insideTask = false;

// A worker more than the cores leave, so that a task that waits does not stop the others on a small machine.
int workerCount() { return std::max(2, static_cast<int>(std::thread::hardware_concurrency())); }

} // namespace

WorkerArena::WorkerArena(oneapi::tbb::task_arena::priority priority) : m_arena(workerCount(), 0, priority) {}

void WorkerArena::enqueue(std::function<void()>&& task, void (*runNextOfThis)()) {
  {
    const std::lock_guard lock(m_mutex);
    m_tasks.push_back(std::move(task));
  }
  m_arena.enqueue(runNextOfThis);
}

void WorkerArena::runNext() {
  std::function<void()> task;
  {
    const std::lock_guard lock(m_mutex);
    task = std::move(m_tasks.front());
    m_tasks.pop_front();
  }
  const bool outer = std::exchange(insideTask, true);
  runGuarded(task);
  insideTask = outer;
}

bool WorkerArena::isWorker() noexcept { return insideTask; }

} // namespace Taren::Core
