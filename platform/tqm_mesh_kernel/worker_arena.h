// SPDX-License-Identifier: MIT
#pragma once

#include <oneapi/tbb/task_arena.h>

#include <deque>
#include <functional>
#include <mutex>

namespace Taren::Core {

/// Runs tasks of one priority on oneTBB's worker threads, started in the order of their arrival.
class WorkerArena {
public:
  explicit WorkerArena(oneapi::tbb::task_arena::priority priority);

  /// @p runNextOfThis must call runNext() of this arena. It carries no state of its own: what crosses the threads
  /// goes through this class's mutex.
  void enqueue(std::function<void()>&& task, void (*runNextOfThis)());
  void runNext();

  /// Whether the calling thread is inside a task of any arena.
  static bool isWorker() noexcept;

private:
  std::mutex m_mutex;
  std::deque<std::function<void()>> m_tasks;
  oneapi::tbb::task_arena m_arena;
};

} // namespace Taren::Core
