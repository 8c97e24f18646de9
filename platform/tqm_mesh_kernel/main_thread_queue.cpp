// SPDX-License-Identifier: MIT
#include "main_thread_queue.h"

#include <QCoreApplication>
#include <QEvent>
#include <QLoggingCategory>

#include <chrono>
#include <exception>

namespace Taren::Core {

namespace {

Q_LOGGING_CATEGORY(dispatcherLog, "taren.dispatcher")

// How long a queued call of Qt waits at most for a main thread that waits itself. Nothing wakes us for such a
// call alone: Qt's own way to wait for it would deliver input, timers and deferred deletions as well.
constexpr std::chrono::milliseconds queuedCallsInterval{1};

void serveQueuedCalls() { QCoreApplication::sendPostedEvents(nullptr, QEvent::MetaCall); }

class Receiver : public QObject {
public:
  explicit Receiver(MainThreadQueue& queue) : m_queue(queue) {}

private:
  // The only custom event it ever gets is the one posted by requestServing().
  void customEvent(QEvent*) override { m_queue.serve(); }

  MainThreadQueue& m_queue;
};

} // namespace

void runGuarded(const std::function<void()>& task) noexcept {
  if (!task)
    return;
  try {
    task();
  } catch (const std::exception& error) {
    qCWarning(dispatcherLog, "A dispatched task failed: %s", error.what());
  } catch (...) {
    qCWarning(dispatcherLog, "A dispatched task failed with an unknown exception");
  }
}

MainThreadQueue::MainThreadQueue() = default;
MainThreadQueue::~MainThreadQueue() = default;

bool MainThreadQueue::push(std::function<void()>&& task) {
  const std::lock_guard lock(m_mutex);
  if (m_closed)
    return false;
  m_queued.push_back(std::move(task));
  requestServing();
  return true;
}

// Called under the lock, so that the receiver cannot go away meanwhile.
void MainThreadQueue::requestServing() {
  if (m_mainThreadWaits)
    m_changed.notify_one();
  if (m_servingRequested || !m_receiver)
    return;
  m_servingRequested = true;
  QCoreApplication::postEvent(m_receiver.get(), new QEvent(QEvent::User));
}

void MainThreadQueue::attachToEventLoop() {
  const std::lock_guard lock(m_mutex);
  m_closed = false;
  m_servingRequested = false;
  m_receiver = std::make_unique<Receiver>(*this);
  m_receiver->moveToThread(QCoreApplication::instance()->thread());
  if (!m_queued.empty())
    requestServing();
}

void MainThreadQueue::serve() {
  {
    const std::lock_guard lock(m_mutex);
    if (m_next == m_batch.size()) {
      m_batch.clear();
      m_next = 0;
      m_batch.swap(m_queued);
    }
    m_servingRequested = false;
    // A task may turn an event loop of its own; this wakes it for the rest of the batch, in order. What was
    // queued meanwhile has no other wake-up than the one just used.
    if (m_batch.size() - m_next > 1 || !m_queued.empty())
      requestServing();
  }
  while (m_next < m_batch.size()) {
    const std::function<void()> task = std::move(m_batch[m_next++]);
    runGuarded(task);
  }
}

void MainThreadQueue::serveUntil(const std::function<bool()>& done) {
  while (!done()) {
    serve();
    runGuarded(serveQueuedCalls);
    std::unique_lock lock(m_mutex);
    m_mainThreadWaits = true;
    m_changed.wait_for(lock, queuedCallsInterval, [&] { return !m_queued.empty() || done(); });
    m_mainThreadWaits = false;
  }
}

void MainThreadQueue::wake() {
  const std::lock_guard lock(m_mutex);
  m_changed.notify_all();
}

bool MainThreadQueue::isEmpty() {
  const std::lock_guard lock(m_mutex);
  return m_queued.empty() && m_next == m_batch.size();
}

void MainThreadQueue::close() {
  {
    const std::lock_guard lock(m_mutex);
    m_closed = true;
  }
  while (!isEmpty())
    serve();
  const std::lock_guard lock(m_mutex);
  m_receiver.reset();
}

} // namespace Taren::Core
