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

quint64 currentThreadNumber() {
  static std::atomic<quint64> threads{0};
  thread_local const quint64 number = ++threads;
  return number;
}

QJsonObject traceEvent(const Waypoint& waypoint) {
  const double microseconds = static_cast<double>(waypoint.time.count()) / 1000.0;
  return {
      {QStringLiteral("name"), waypoint.name},
      {QStringLiteral("ph"), QStringLiteral("i")},
      {QStringLiteral("s"), QStringLiteral("t")},
      {QStringLiteral("ts"), microseconds},
      {QStringLiteral("pid"), QCoreApplication::applicationPid()},
      {QStringLiteral("tid"), static_cast<qint64>(waypoint.thread)},
  };
}

} // namespace

WaypointRing::WaypointRing(std::size_t capacity)
    : m_capacity(capacity), m_start(std::chrono::steady_clock::now()) {
  if (capacity == 0)
    throw std::invalid_argument("A waypoint ring needs room for at least one waypoint!");
}

void WaypointRing::record(const QString& name) {
  Waypoint waypoint{name, {}, currentThreadNumber()};
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

bool WaypointRing::writeTrace(QIODevice& device) const {
  QJsonArray events;
  const QList<Waypoint> kept = waypoints();
  for (const Waypoint& waypoint : kept)
    events.append(traceEvent(waypoint));
  const QJsonObject trace{{QStringLiteral("traceEvents"), events},
                          {QStringLiteral("displayTimeUnit"), QStringLiteral("ms")}};
  const QByteArray json = QJsonDocument(trace).toJson(QJsonDocument::Compact);
  return device.write(json) == json.size();
}

} // namespace Taren::Core
