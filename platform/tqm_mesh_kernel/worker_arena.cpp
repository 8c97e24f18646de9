// SPDX-License-Identifier: MIT
#include "worker_arena.h"

#include "main_thread_queue.h"

#include <algorithm>
#include <thread>

namespace Taren::Core {

namespace {

// How many arenas the calling thread works for; more than one when a task waits inside another arena.
thread_local int arenasEntered = 0;

} // namespace

WorkerArena::Attendance::Attendance(oneapi::tbb::task_arena& arena) : task_scheduler_observer(arena) {
  observe(true);
}

void WorkerArena::Attendance::on_scheduler_entry(bool) { ++arenasEntered; }

void WorkerArena::Attendance::on_scheduler_exit(bool) { --arenasEntered; }

int WorkerArena::workerCount() noexcept {
  return std::max(2, static_cast<int>(std::thread::hardware_concurrency()));
}

WorkerArena::WorkerArena(oneapi::tbb::task_arena::priority priority)
    : m_arena(workerCount(), 0, priority), m_attendance(m_arena) {}

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
  runGuarded(task);
}

bool WorkerArena::isWorker() noexcept { return arenasEntered > 0; }

} // namespace Taren::Core
