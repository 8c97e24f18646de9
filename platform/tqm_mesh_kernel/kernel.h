// SPDX-License-Identifier: MIT
#pragma once

#include <tqm_mesh_kernel/i_service.h>
#include <tqm_mesh_kernel/waypoint_ring.h>

#include <QList>

#include <functional>
#include <memory>
#include <mutex>
#include <vector>

namespace Taren::Core {

/// The host of the program's services and the keeper of its profiler waypoints.
///
/// Services are for the main thread; waypoints may be recorded from any thread.
///
/// @code
/// Kernel kernel;
/// kernel.registerService(std::make_shared<MeshStore>());
/// kernel.registerService(std::make_shared<WorkbenchApp>());
/// if (kernel.start() != RcmSuccess)
///   return 1;                      // what had started is terminated again
/// const int status = application.exec();
/// kernel.stop();
/// @endcode
class TQM_MESH_KERNEL_EXPORT Kernel {
public:
  /// Keeps as many of the newest waypoints as @p waypointCapacity.
  explicit Kernel(std::size_t waypointCapacity = WaypointRing::defaultCapacity);
  /// Stops what still runs and lets the services go, see releaseServices().
  ~Kernel();
  Kernel(const Kernel&) = delete;
  Kernel& operator=(const Kernel&) = delete;

  /// Records a named point in time on the calling thread. The newest ones are kept.
  void ProfilerWaypoint(const QString& name);
  /// The waypoints recorded so far, from any thread.
  const WaypointRing& waypoints() const noexcept { return m_waypoints; }
  /// Adds what is asked, on the thread that writes, for spans to stand beside the waypoints in each trace.
  void addTraceSource(std::function<QList<TraceSpan>()> source);
  /// Writes the waypoints kept, and what the trace sources give, to a file that trace viewers of the Chrome
  /// trace-event format open.
  /// @return false, and the reason in @p error when given, if the file cannot be written.
  bool writeTrace(const QString& path, QString* error = nullptr) const;

  /// Adds a service at the end of the start order.
  /// @throws std::invalid_argument for a null service, std::logic_error after start().
  void registerService(std::shared_ptr<IService> service);
  /// Initialises the services in the order of their registration. When one fails or throws, those initialised
  /// before it are terminated in reverse order and the failing one's status is returned.
  /// @throws std::logic_error when already started.
  ERcmStatus start();
  /// Terminates the services in reverse order of registration, all of them, whatever one of them throws.
  void stop() noexcept;
  /// Stops, then lets go of every service, the one registered last first. Services may be registered anew.
  void releaseServices() noexcept;
  /// Whether start() has succeeded and stop() has not been called since.
  bool isStarted() const noexcept { return m_started; }
  /// The first service of that name, or null.
  std::shared_ptr<IService> service(const QString& name) const;

private:
  QList<TraceSpan> traceSpans() const;

  WaypointRing m_waypoints;
  mutable std::mutex m_traceMutex;
  std::vector<std::function<QList<TraceSpan>()>> m_traceSources;
  std::vector<std::shared_ptr<IService>> m_services;
  std::size_t m_initialised = 0;
  bool m_started = false;
};

} // namespace Taren::Core
