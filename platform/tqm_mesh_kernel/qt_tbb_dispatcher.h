// SPDX-License-Identifier: MIT
#pragma once

#include "i_dispatcher.h"
#include "main_thread_queue.h"

#include <atomic>

namespace Taren::Core {

/// The default dispatcher: the Qt main thread for MainThreadQoS, a oneTBB arena each for the others.
///
/// When the application object goes, it waits for the workers, serves the main thread's queue to its end and
/// refuses tasks from then on; a new application object opens it again.
class QtTbbDispatcher final : public IDispatcher {
public:
  /// Never destroyed, so that objects with static lifetime may dispatch (and be refused) during exit.
  static QtTbbDispatcher& instance();

  bool dispatchAsync(std::function<void()> task, EQualityOfService qos) override;
  bool dispatchSync(const std::function<void()>& task, EQualityOfService qos) override;

  /// Called in the constructor of the application object.
  static void applicationStarts();

private:
  QtTbbDispatcher() = default;

  static void applicationEnds();

  bool enqueueForWorkers(std::function<void()>&& task, EQualityOfService qos);
  bool admitsWorkerTask();
  template <int qos>
  static void runNextWorkerTask();
  void workerTaskEnded();

  static constexpr int unlimitedAdmissions = -1;

  MainThreadQueue m_mainThread;
  std::atomic<int> m_workerTasks{0};
  std::atomic<int> m_admissions{unlimitedAdmissions}; // how many more tasks the workers take
};

} // namespace Taren::Core
