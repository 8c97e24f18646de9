// SPDX-License-Identifier: MIT
#pragma once

#include <tqm_mesh_kernel/tqm_mesh_kernel_export.h>

#include <QJsonObject>
#include <QList>
#include <QString>

#include <chrono>
#include <cstddef>
#include <mutex>

class QIODevice;

namespace Taren::Core {

/// A named point in time on one thread.
struct Waypoint {
  QString name;
  std::chrono::nanoseconds time{}; ///< Since the ring was made.
  quint64 thread = 0;              ///< Identifies the recording thread within this process.
};

/// Something that took its time on one thread, as a trace shows it.
struct TraceSpan {
  QString name;
  std::chrono::steady_clock::time_point begin;
  std::chrono::nanoseconds duration{};
  quint64 thread = 0;  ///< As traceThread() gave it on that thread.
  QJsonObject details; ///< Shown when the span is selected.
};

/// The number under which a trace knows the calling thread.
TQM_MESH_KERNEL_EXPORT quint64 traceThread();

/// Keeps the newest waypoints, up to a fixed number. All operations may be called from any thread.
class TQM_MESH_KERNEL_EXPORT WaypointRing {
public:
  static constexpr std::size_t defaultCapacity = 4096;

  /// @throws std::invalid_argument when @p capacity is 0.
  explicit WaypointRing(std::size_t capacity = defaultCapacity);

  /// Adds a waypoint with the time and thread of the call; the oldest makes room. From any thread.
  void record(const QString& name);
  /// Forgets all waypoints.
  void clear();
  /// How many waypoints are kept.
  std::size_t capacity() const noexcept { return m_capacity; }

  /// A copy of what is kept, oldest first.
  QList<Waypoint> waypoints() const;

  /// Writes the waypoints, and spans beside them, in the Chrome trace-event format (chrome://tracing,
  /// Perfetto).
  /// @return false when the device took less than everything.
  bool writeTrace(QIODevice& device, const QList<TraceSpan>& spans = {}) const;

private:
  const std::size_t m_capacity;
  const std::chrono::steady_clock::time_point m_start;
  mutable std::mutex m_mutex;
  QList<Waypoint> m_waypoints;
  qsizetype m_oldest = 0;
};

} // namespace Taren::Core
