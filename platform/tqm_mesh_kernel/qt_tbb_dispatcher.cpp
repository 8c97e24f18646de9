// SPDX-License-Identifier: MIT
#include "qt_tbb_dispatcher.h"

#include "dispatch.h"
#include "worker_arena.h"

#include <QCoreApplication>

#include <oneapi/tbb/global_control.h>

#include <array>
#include <chrono>
#include <future>
#include <memory>

using namespace std::chrono_literals;

namespace Taren::Core {

namespace {

using Priority = oneapi::tbb::task_arena::priority;

// What is handed over while the application ends is still served, but whoever never stops is cut off: after
// so many rounds of the main thread's queue, and after so many tasks for workers.
constexpr int closingRounds = 1000;
constexpr int closingTasks = 1000;

struct Workers {
  // oneTBB's own limit leaves a machine of two cores one worker.
  oneapi::tbb::global_control parallelism{oneapi::tbb::global_control::max_allowed_parallelism,
                                          static_cast<std::size_t>(WorkerArena::workerCount()) + 1};
  std::array<WorkerArena, 3> arenas{WorkerArena(Priority::high), WorkerArena(Priority::normal),
                                    WorkerArena(Priority::low)};
};

// Made with the first task, and never destroyed, as the dispatcher: oneTBB looks at the machine then and
// loads libraries of its own, for which no program waits while it starts.
WorkerArena& arenaFor(int qos) {
  static Workers& workers = *new Workers;
  return workers.arenas.at(static_cast<std::size_t>(qos - HighQoS));
}

EQualityOfService known(EQualityOfService qos) {
  return qos >= MainThreadQoS && qos <= LowQoS ? qos : NormalQoS;
}

} // namespace

QtTbbDispatcher& QtTbbDispatcher::instance() {
  static QtTbbDispatcher& dispatcher = *new QtTbbDispatcher;
  return dispatcher;
}

bool QtTbbDispatcher::dispatchAsync(std::function<void()> task, EQualityOfService qos) {
  if (qos == MainThreadQoS)
    return m_mainThread.push(std::move(task));
  return enqueueForWorkers(std::move(task), known(qos));
}

bool QtTbbDispatcher::dispatchSync(const std::function<void()>& task, EQualityOfService qos) {
  const bool onMainThread = isMainThread();
  if (qos == MainThreadQoS ? onMainThread : WorkerArena::isWorker()) {
    runGuarded(task);
    return true;
  }
  // The waiting side may be gone from its wait before the last line of the task, so both share the promise.
  // An atomic flag will not do: libstdc++ loses notifications where the system cannot wait on an address, as
  // MinGW-w64 cannot.
  const auto done = std::make_shared<std::promise<void>>();
  const std::future<void> end = done->get_future();
  const auto announce = [this, &task, done] {
    runGuarded(task);
    done->set_value();
    m_mainThread.wake();
  };
  if (!dispatchAsync(announce, qos))
    return false;
  if (onMainThread && QCoreApplication::instance())
    m_mainThread.serveUntil([&end] { return end.wait_for(0s) == std::future_status::ready; });
  else
    end.wait();
  return true;
}

bool QtTbbDispatcher::enqueueForWorkers(std::function<void()>&& task, EQualityOfService qos) {
  // Counted before it is admitted, so that applicationEnds() waits for whoever it did not refuse.
  ++m_workerTasks;
  if (!admitsWorkerTask()) {
    workerTaskEnded();
    return false;
  }
  static constexpr std::array<void (*)(), 3> runNext{runNextWorkerTask<HighQoS>, runNextWorkerTask<NormalQoS>,
                                                     runNextWorkerTask<LowQoS>};
  arenaFor(qos).enqueue(std::move(task), runNext.at(static_cast<std::size_t>(qos - HighQoS)));
  return true;
}

bool QtTbbDispatcher::admitsWorkerTask() {
  int left = m_admissions;
  while (left > 0 && !m_admissions.compare_exchange_weak(left, left - 1)) {
  }
  return left != 0;
}

template <int qos>
void QtTbbDispatcher::runNextWorkerTask() {
  arenaFor(qos).runNext();
  instance().workerTaskEnded();
}

void QtTbbDispatcher::workerTaskEnded() {
  if (--m_workerTasks == 0)
    m_mainThread.wake();
}

void QtTbbDispatcher::applicationStarts() {
  instance().m_admissions = unlimitedAdmissions;
  instance().m_mainThread.attachToEventLoop();
  qAddPostRoutine(applicationEnds);
}

void QtTbbDispatcher::applicationEnds() {
  QtTbbDispatcher& dispatcher = instance();
  MainThreadQueue& queue = dispatcher.m_mainThread;
  const auto workersAreIdle = [&dispatcher] { return dispatcher.m_workerTasks == 0; };
  dispatcher.m_admissions = closingTasks;
  for (int round = 0; round < closingRounds && !(workersAreIdle() && queue.isEmpty()); ++round) {
    queue.serve();
    queue.serveUntil(workersAreIdle);
  }
  dispatcher.m_admissions = 0;
  queue.serveUntil(workersAreIdle);
  queue.close();
}

namespace {
// Runs in the constructor of the application object, or at once when there is one already.
void attachToApplication() { QtTbbDispatcher::applicationStarts(); }
Q_COREAPP_STARTUP_FUNCTION(attachToApplication)
} // namespace

} // namespace Taren::Core
