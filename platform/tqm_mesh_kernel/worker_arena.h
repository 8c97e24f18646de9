// SPDX-License-Identifier: MIT
#pragma once

#include <oneapi/tbb/task_arena.h>
#include <oneapi/tbb/task_scheduler_observer.h>

#include <deque>
#include <functional>
#include <mutex>

namespace Taren::Core {

/// Runs tasks of one priority on oneTBB's worker threads, started in the order of their arrival.
class WorkerArena {
public:
  explicit WorkerArena(oneapi::tbb::task_arena::priority priority);

  /// @p runNextOfThis must call runNext() of this arena. It carries no state of its own: what crosses the
  /// threads goes through this class's mutex.
  void enqueue(std::function<void()>&& task, void (*runNextOfThis)());
  void runNext();

  /// Whether the calling thread works for any arena, also as a helper in a parallel loop of a task.
  static bool isWorker() noexcept;
  /// One for each core, and two on the smallest machine, so that a task that waits does not stop the others.
  static int workerCount() noexcept;

private:
  class Attendance : public oneapi::tbb::task_scheduler_observer {
  public:
    explicit Attendance(oneapi::tbb::task_arena& arena);
    void on_scheduler_entry(bool isWorker) override;
    void on_scheduler_exit(bool isWorker) override;
  };

  std::mutex m_mutex;
  std::deque<std::function<void()>> m_tasks;
  oneapi::tbb::task_arena m_arena;
  Attendance m_attendance;
};

} // namespace Taren::Core
