// SPDX-License-Identifier: MIT
#pragma once

#include <condition_variable>
#include <cstddef>
#include <functional>
#include <memory>
#include <mutex>
#include <vector>

class QObject;

namespace Taren::Core {

/// Runs a task; logs what it throws.
void runGuarded(const std::function<void()>& task) noexcept;

/// The first-in-first-out queue of tasks that the Qt main thread serves from its event loop. Many tasks
/// handed over in one turn of the event loop cost one wake-up.
class MainThreadQueue {
public:
  MainThreadQueue();
  ~MainThreadQueue();
  MainThreadQueue(const MainThreadQueue&) = delete;
  MainThreadQueue& operator=(const MainThreadQueue&) = delete;

  /// Any thread. False when the queue is closed.
  bool push(std::function<void()>&& task);

  /// The rest is for the main thread.

  /// Starts to be woken by the event loop of the application object's thread, and opens a closed queue.
  void attachToEventLoop();
  /// Runs the tasks queued so far; also from inside a task that turns an event loop of its own.
  void serve();
  /// Serves the queue, and Qt's queued calls to objects of the main thread, until @p done answers true;
  /// wake() makes it look again.
  void serveUntil(const std::function<bool()>& done);
  /// Any thread.
  void wake();
  bool isEmpty();
  /// Refuses further tasks and serves those that are queued.
  void close();

private:
  void requestServing();

  std::mutex m_mutex;
  std::condition_variable m_changed;
  std::vector<std::function<void()>> m_queued;
  std::unique_ptr<QObject> m_receiver;
  bool m_servingRequested = false;
  bool m_mainThreadWaits = false;
  bool m_closed = false;

  // The batch being run. Only the main thread touches it.
  std::vector<std::function<void()>> m_batch;
  std::size_t m_next = 0;
};

} // namespace Taren::Core
