// SPDX-License-Identifier: MIT
#include "waypoint_ring.h"

#include <QCoreApplication>
#include <QIODevice>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <atomic>
#include <stdexcept>

namespace Taren::Core {

namespace {

double microseconds(std::chrono::nanoseconds time) { return static_cast<double>(time.count()) / 1000.0; }

QJsonObject traceEvent(const QString& name, const char* phase, std::chrono::nanoseconds time,
                       quint64 thread) {
  return {
      {QStringLiteral("name"), name},
      {QStringLiteral("ph"), QLatin1String(phase)},
      {QStringLiteral("ts"), microseconds(time)},
      {QStringLiteral("pid"), QCoreApplication::applicationPid()},
      {QStringLiteral("tid"), static_cast<qint64>(thread)},
  };
}

QJsonObject traceEvent(const Waypoint& waypoint) {
  QJsonObject event = traceEvent(waypoint.name, "i", waypoint.time, waypoint.thread);
  event.insert(QStringLiteral("s"), QStringLiteral("t"));
  return event;
}

QJsonObject traceEvent(const TraceSpan& span, std::chrono::steady_clock::time_point start) {
  QJsonObject event = traceEvent(span.name, "X", span.begin - start, span.thread);
  event.insert(QStringLiteral("dur"), microseconds(span.duration));
  event.insert(QStringLiteral("args"), span.details);
  return event;
}

} // namespace

quint64 traceThread() {
  static std::atomic<quint64> threads{0};
  thread_local const quint64 number = ++threads;
  return number;
}

WaypointRing::WaypointRing(std::size_t capacity)
    : m_capacity(capacity), m_start(std::chrono::steady_clock::now()) {
  if (capacity == 0)
    throw std::invalid_argument("A waypoint ring needs room for at least one waypoint!");
}

void WaypointRing::record(const QString& name) {
  Waypoint waypoint{name, {}, traceThread()};
  const std::lock_guard lock(m_mutex);
  // Under the lock, so that waypoints of several threads are kept in the order of their times.
  waypoint.time = std::chrono::steady_clock::now() - m_start;
  if (m_waypoints.size() < static_cast<qsizetype>(m_capacity)) {
    m_waypoints.append(std::move(waypoint));
    return;
  }
  m_waypoints[m_oldest] = std::move(waypoint);
  m_oldest = (m_oldest + 1) % m_waypoints.size();
}

void WaypointRing::clear() {
  const std::lock_guard lock(m_mutex);
  m_waypoints.clear();
  m_oldest = 0;
}

QList<Waypoint> WaypointRing::waypoints() const {
  const std::lock_guard lock(m_mutex);
  return m_waypoints.sliced(m_oldest) + m_waypoints.first(m_oldest);
}

bool WaypointRing::writeTrace(QIODevice& device, const QList<TraceSpan>& spans) const {
  QJsonArray events;
  const QList<Waypoint> kept = waypoints();
  for (const Waypoint& waypoint : kept)
    events.append(traceEvent(waypoint));
  for (const TraceSpan& span : spans)
    events.append(traceEvent(span, m_start));
  const QJsonObject trace{{QStringLiteral("traceEvents"), events},
                          {QStringLiteral("displayTimeUnit"), QStringLiteral("ms")}};
  const QByteArray json = QJsonDocument(trace).toJson(QJsonDocument::Compact);
  return device.write(json) == json.size();
}

} // namespace Taren::Core
