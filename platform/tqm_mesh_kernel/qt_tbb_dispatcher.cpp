// SPDX-License-Identifier: MIT
#include "qt_tbb_dispatcher.h"

#include <QCoreApplication>
#include <QSemaphore>

namespace Taren::Core {

namespace {

using Priority = oneapi::tbb::task_arena::priority;

EQualityOfService known(EQualityOfService qos) {
  return qos >= MainThreadQoS && qos <= LowQoS ? qos : NormalQoS;
}

} // namespace

QtTbbDispatcher& QtTbbDispatcher::instance() {
  static QtTbbDispatcher& dispatcher = *new QtTbbDispatcher;
  return dispatcher;
}

QtTbbDispatcher::QtTbbDispatcher()
    : m_arenas{WorkerArena(Priority::high), WorkerArena(Priority::normal), WorkerArena(Priority::low)} {}

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
  // The waiting side may be gone from its wait before the last line of the task, so both share the semaphore.
  const auto done = std::make_shared<QSemaphore>();
  const auto announce = [this, &task, done] {
    runGuarded(task);
    done->release();
    m_mainThread.wake();
  };
  if (!dispatchAsync(announce, qos))
    return false;
  if (onMainThread && QCoreApplication::instance())
    m_mainThread.serveUntil([&done] { return done->available() > 0; });
  else
    done->acquire();
  return true;
}

bool QtTbbDispatcher::enqueueForWorkers(std::function<void()>&& task, EQualityOfService qos) {
  if (m_refuses)
    return false;
  static constexpr std::array<void (*)(), 3> runNext{runNextWorkerTask<HighQoS>, runNextWorkerTask<NormalQoS>,
                                                     runNextWorkerTask<LowQoS>};
  const auto index = static_cast<std::size_t>(qos - HighQoS);
  ++m_workerTasks;
  m_arenas.at(index).enqueue(std::move(task), runNext.at(index));
  return true;
}

template <int qos>
void QtTbbDispatcher::runNextWorkerTask() {
  QtTbbDispatcher& dispatcher = instance();
  dispatcher.m_arenas.at(qos - HighQoS).runNext();
  dispatcher.workerTaskEnded();
}

void QtTbbDispatcher::workerTaskEnded() {
  if (--m_workerTasks == 0)
    m_mainThread.wake();
}

void QtTbbDispatcher::applicationStarts() {
  instance().m_refuses = false;
  instance().m_mainThread.attachToEventLoop();
  qAddPostRoutine(applicationEnds);
}

void QtTbbDispatcher::applicationEnds() {
  QtTbbDispatcher& dispatcher = instance();
  dispatcher.m_mainThread.serveUntil([&] { return dispatcher.m_workerTasks == 0; });
  dispatcher.m_refuses = true;
  dispatcher.m_mainThread.close();
}

namespace {
// Runs in the constructor of the application object, or at once when there is one already.
void attachToApplication() { QtTbbDispatcher::applicationStarts(); }
Q_COREAPP_STARTUP_FUNCTION(attachToApplication)
} // namespace

} // namespace Taren::Core
