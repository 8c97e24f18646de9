// SPDX-License-Identifier: MIT
#pragma once

#include <tqm_mesh_kernel/quality_of_service.h>
#include <tqm_mesh_kernel/tqm_mesh_kernel_export.h>

#include <functional>

namespace Taren::Core {

/// Hands a task to the dispatcher, which runs it exactly once, later, never inside this call.
///
/// Callable from any thread. What the task throws is logged and goes no further. Tasks of MainThreadQoS run
/// in the order in which they were handed over; they wait for an application object if there is none yet.
///
/// An empty function is a task that does nothing.
///
/// @code
/// dispatchAsync([mesh] { mesh->smooth(); }, NormalQoS);
/// @endcode
///
/// @return false when the dispatcher refuses the task, which it does once the application object is gone.
TQM_MESH_KERNEL_EXPORT bool dispatchAsync(const std::function<void()>& task, EQualityOfService qos);
/// Moves the task instead of copying it.
TQM_MESH_KERNEL_EXPORT bool dispatchAsync(std::function<void()>&& task, EQualityOfService qos);

/// Runs a task where its quality of service belongs and waits for its end.
///
/// Runs inline when the calling thread is the right one already (the main thread for MainThreadQoS, a worker
/// of the dispatcher for the others). While the main thread waits, it serves its own queue and Qt's queued
/// calls to objects of its own, so a worker that in turn waits for the main thread is always served, also one
/// in a blocking queued call. Input, timers, repaints and deferred deletions wait.
///
/// @return false when the dispatcher refused the task, which then did not run.
TQM_MESH_KERNEL_EXPORT bool dispatchSync(const std::function<void()>& task, EQualityOfService qos);

/// Whether the calling thread is the one that runs tasks of MainThreadQoS. True everywhere while there is no
/// application object.
TQM_MESH_KERNEL_EXPORT bool isMainThread() noexcept;

} // namespace Taren::Core
