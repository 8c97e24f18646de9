// SPDX-License-Identifier: MIT
#include "application_service.h"

#include "config_manager.h"
#include "i_app_manager.h"
#include "shutdown_protocol.h"

#include <QCoreApplication>
#include <QScopedValueRollback>

#include <algorithm>

namespace Vela::Services {

namespace {

using WeakDelegate = std::weak_ptr<ShutdownProtocol>;

auto isOwnedLike(const std::shared_ptr<ShutdownProtocol>& delegate) {
  return [&delegate](const WeakDelegate& other) {
    return !other.owner_before(delegate) && !delegate.owner_before(other);
  };
}

} // namespace

ApplicationService& ApplicationService::GetInstance() {
  static ApplicationService service;
  service.releaseWithApplication();
  return service;
}

// Whoever asks first makes it; it belongs to the main thread all the same.
ApplicationService::ApplicationService() {
  if (const QCoreApplication* const application = QCoreApplication::instance())
    moveToThread(application->thread());
}

ApplicationService::~ApplicationService() = default;

// Post routines run once, last registered first. Registered while there is an application object, this one
// runs before the dispatcher closes, so that ending services may still hand over work.
void ApplicationService::releaseWithApplication() {
  if (!m_releaseRegistered && QCoreApplication::instance() && !m_releaseRegistered.exchange(true))
    qAddPostRoutine(release);
}

// Services and managers own widgets and settings, which must not outlive the application object.
void ApplicationService::release() {
  ApplicationService& service = GetInstance();
  service.m_kernel.releaseServices();
  service.m_appManager.reset();
  service.m_configManager.reset();
  service.m_shutdownDelegates.clear();
  service.m_releaseRegistered = false;
}

void ApplicationService::EnableWorkspaceSwitching(bool enable) {
  const bool before = isWorkspaceSwitchingEnabled();
  m_switchingLocks = enable ? std::max(0, m_switchingLocks - 1) : m_switchingLocks + 1;
  if (isWorkspaceSwitchingEnabled() != before)
    Q_EMIT workspaceSwitchingChanged(!before);
}

void ApplicationService::setAppManager(std::unique_ptr<IAppManager> manager) {
  m_appManager = std::move(manager);
}

ConfigManager& ApplicationService::GetConfigManager() {
  if (!m_configManager)
    m_configManager = std::make_unique<ConfigManager>();
  return *m_configManager;
}

void ApplicationService::setConfigManager(std::unique_ptr<ConfigManager> manager) {
  m_configManager = std::move(manager);
}

void ApplicationService::addShutdownProtocolDelegate(const std::shared_ptr<ShutdownProtocol>& delegate) {
  if (!delegate)
    return;
  m_shutdownDelegates.removeIf([](const WeakDelegate& other) { return other.expired(); });
  if (std::none_of(m_shutdownDelegates.cbegin(), m_shutdownDelegates.cend(), isOwnedLike(delegate)))
    m_shutdownDelegates.append(delegate);
}

void ApplicationService::removeShutdownProtocolDelegate(const std::shared_ptr<ShutdownProtocol>& delegate) {
  m_shutdownDelegates.removeIf(
      [same = isOwnedLike(delegate)](const WeakDelegate& other) { return other.expired() || same(other); });
}

qsizetype ApplicationService::shutdownProtocolDelegateCount() const {
  return std::count_if(m_shutdownDelegates.cbegin(), m_shutdownDelegates.cend(),
                       [](const WeakDelegate& delegate) { return !delegate.expired(); });
}

std::shared_ptr<ShutdownProtocol> ApplicationService::firstNotIn(const QList<WeakDelegate>& asked) const {
  for (const WeakDelegate& weak : m_shutdownDelegates) {
    auto delegate = weak.lock();
    if (delegate && std::none_of(asked.cbegin(), asked.cend(), isOwnedLike(delegate)))
      return delegate;
  }
  return nullptr;
}

bool ApplicationService::requestShutdown() {
  if (m_shuttingDown)
    return false;
  const QScopedValueRollback shuttingDown(m_shuttingDown, true);
  // A delegate may register and remove delegates when asked; newcomers are asked too.
  QList<WeakDelegate> asked;
  while (const auto delegate = firstNotIn(asked)) {
    asked.append(delegate);
    if (!delegate->mayShutDown())
      return false;
  }
  const QList<WeakDelegate> told = m_shutdownDelegates;
  for (const WeakDelegate& weak : told) {
    if (const auto delegate = weak.lock())
      delegate->onShutDown();
  }
  return true;
}

} // namespace Vela::Services
