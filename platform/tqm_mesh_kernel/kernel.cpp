// SPDX-License-Identifier: MIT
#include "kernel.h"

#include <QLoggingCategory>
#include <QSaveFile>

#include <algorithm>
#include <stdexcept>

namespace Taren::Core {

namespace {

Q_LOGGING_CATEGORY(kernelLog, "taren.kernel")

ERcmStatus initialize(IService& service) noexcept {
  try {
    return service.Initialize();
  } catch (const std::exception& error) {
    qCWarning(kernelLog, "The service \"%s\" failed to start: %s", qUtf8Printable(service.ServiceName()),
              error.what());
  } catch (...) {
    qCWarning(kernelLog, "The service \"%s\" failed to start", qUtf8Printable(service.ServiceName()));
  }
  return RcmFailure;
}

void terminate(IService& service) noexcept {
  try {
    service.Terminate();
  } catch (const std::exception& error) {
    qCWarning(kernelLog, "The service \"%s\" failed to end: %s", qUtf8Printable(service.ServiceName()),
              error.what());
  } catch (...) {
    qCWarning(kernelLog, "The service \"%s\" failed to end", qUtf8Printable(service.ServiceName()));
  }
}

} // namespace

Kernel::Kernel(std::size_t waypointCapacity) : m_waypoints(waypointCapacity) {}

Kernel::~Kernel() { releaseServices(); }

void Kernel::ProfilerWaypoint(const QString& name) { m_waypoints.record(name); }

void Kernel::addTraceSource(std::function<QList<TraceSpan>()> source) {
  const std::lock_guard lock(m_traceMutex);
  m_traceSources.push_back(std::move(source));
}

QList<TraceSpan> Kernel::traceSpans() const {
  const auto sources = [this] {
    const std::lock_guard lock(m_traceMutex);
    return m_traceSources;
  }();
  QList<TraceSpan> spans;
  for (const auto& source : sources)
    spans += source();
  return spans;
}

bool Kernel::writeTrace(const QString& path, QString* error) const {
  QSaveFile file(path);
  if (file.open(QIODevice::WriteOnly) && m_waypoints.writeTrace(file, traceSpans()) && file.commit())
    return true;
  if (error)
    *error = file.errorString();
  return false;
}

void Kernel::registerService(std::shared_ptr<IService> service) {
  if (!service)
    throw std::invalid_argument("A service must not be null!");
  if (m_started)
    throw std::logic_error("Services are registered before the kernel starts!");
  m_services.push_back(std::move(service));
}

ERcmStatus Kernel::start() {
  if (m_started)
    throw std::logic_error("The kernel has started already!");
  m_started = true;
  while (m_initialised < m_services.size()) {
    const std::shared_ptr<IService> service = m_services[m_initialised];
    const ERcmStatus status = initialize(*service);
    if (!m_started) { // the service stopped the kernel; those before it are terminated
      if (status == RcmSuccess)
        terminate(*service);
      return RcmFailure;
    }
    if (status != RcmSuccess) {
      stop();
      return status;
    }
    ++m_initialised;
  }
  return RcmSuccess;
}

void Kernel::stop() noexcept {
  while (m_initialised > 0) {
    const std::shared_ptr<IService> service = m_services[--m_initialised];
    terminate(*service);
  }
  m_started = false;
}

void Kernel::releaseServices() noexcept {
  stop();
  while (!m_services.empty()) {
    // Out of the list first: while it dies it may look for other services.
    const std::shared_ptr<IService> service = std::move(m_services.back());
    m_services.pop_back();
  }
}

std::shared_ptr<IService> Kernel::service(const QString& name) const {
  const auto found = std::find_if(m_services.begin(), m_services.end(),
                                  [&name](const auto& service) { return service->ServiceName() == name; });
  return found == m_services.end() ? nullptr : *found;
}

} // namespace Taren::Core
