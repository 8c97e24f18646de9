// SPDX-License-Identifier: MIT
#pragma once

#include <tqm_mesh_kernel/quality_of_service.h>
#include <tqm_mesh_kernel/tqm_mesh_kernel_export.h>

#include <functional>

namespace Taren::Core {

/// What dispatchAsync() and dispatchSync() hand their tasks to.
///
/// The default one serves MainThreadQoS from the Qt event loop and the others from oneTBB task arenas. An
/// application with a scheduler of its own, or a test that wants to step tasks by hand (SteppedDispatcher),
/// installs another with setDispatcher() or ScopedDispatcher.
class TQM_MESH_KERNEL_EXPORT IDispatcher {
public:
  IDispatcher() = default;
  virtual ~IDispatcher();
  IDispatcher(const IDispatcher&) = delete;
  IDispatcher& operator=(const IDispatcher&) = delete;

  /// See Taren::Core::dispatchAsync(). Must accept calls from any thread and must not run the task inline.
  /// The functions of that name never hand over an empty task.
  virtual bool dispatchAsync(std::function<void()> task, EQualityOfService qos) = 0;
  /// See Taren::Core::dispatchSync(). Must not let what the task throws escape.
  virtual bool dispatchSync(const std::function<void()>& task, EQualityOfService qos) = 0;
};

/// Installs a dispatcher, which stays the caller's and must outlive its installation; null brings the default
/// one back. Call it while no other thread dispatches.
/// @return the dispatcher installed before, null for the default one.
TQM_MESH_KERNEL_EXPORT IDispatcher* setDispatcher(IDispatcher* dispatcher) noexcept;

/// Installs a dispatcher for the length of a scope.
class ScopedDispatcher {
public:
  /// Installs @p dispatcher, which must outlive this object; its destructor installs the one before again.
  explicit ScopedDispatcher(IDispatcher& dispatcher) : m_previous(setDispatcher(&dispatcher)) {}
  ~ScopedDispatcher() { setDispatcher(m_previous); }
  ScopedDispatcher(const ScopedDispatcher&) = delete;
  ScopedDispatcher& operator=(const ScopedDispatcher&) = delete;

private:
  IDispatcher* m_previous;
};

} // namespace Taren::Core
