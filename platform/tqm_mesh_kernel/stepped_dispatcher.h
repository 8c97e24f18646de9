// SPDX-License-Identifier: MIT
#pragma once

#include <tqm_mesh_kernel/i_dispatcher.h>

#include <cstddef>
#include <deque>
#include <mutex>

namespace Taren::Core {

/// A dispatcher that runs nothing by itself: its owner steps it. For tests that look at what stands between
/// two tasks, and for hosts without an event loop.
///
/// Tasks may be handed over from any thread; whoever steps runs them, whatever their quality of service.
///
/// @code
/// SteppedDispatcher dispatcher;
/// ScopedDispatcher installed(dispatcher);
/// command->trigger();                 // hands its work over
/// dispatcher.step(NormalQoS);         // runs the work
/// dispatcher.runAll();                // runs the closing steps
/// @endcode
class TQM_MESH_KERNEL_EXPORT SteppedDispatcher final : public IDispatcher {
public:
  SteppedDispatcher();
  ~SteppedDispatcher() override;

  bool dispatchAsync(std::function<void()> task, EQualityOfService qos) override;
  /// Runs the task inline.
  bool dispatchSync(const std::function<void()>& task, EQualityOfService qos) override;

  /// Runs the task that has waited longest. @return false when none waits.
  bool step();
  /// Runs the task of that quality of service that has waited longest. @return false when none waits.
  bool step(EQualityOfService qos);
  /// Steps until nothing waits, tasks handed over meanwhile included.
  void runAll();

  /// How many tasks wait, of all qualities of service.
  std::size_t pending() const;
  /// How many tasks wait that were dispatched with this quality of service.
  std::size_t pending(EQualityOfService qos) const;

  /// While refusing, dispatchAsync() and dispatchSync() answer false and run nothing.
  void setRefusing(bool refusing);

private:
  struct Entry {
    std::function<void()> task;
    EQualityOfService qos;
  };

  mutable std::mutex m_mutex;
  std::deque<Entry> m_entries;
  bool m_refusing = false;
};

} // namespace Taren::Core
