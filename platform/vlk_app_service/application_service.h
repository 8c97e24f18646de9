// SPDX-License-Identifier: MIT
#pragma once

#include <tqm_mesh_kernel/kernel.h>
#include <vlk_app_service/vlk_app_service_export.h>

#include <QList>
#include <QObject>

#include <atomic>
#include <memory>

namespace Vela::Services {

class ConfigManager;
class IAppManager;
class ShutdownProtocol;

/// The one place where the parts of a program find what they share: the kernel, the application manager, the
/// settings, the shutdown delegates and the switch for changing workspaces.
///
/// For the main thread, except that the kernel's waypoints may be recorded from any thread. What it holds,
/// the kernel's services included, is let go when the application object ends.
///
/// @code
/// auto& service = ApplicationService::GetInstance();
/// service.setAppManager(std::make_unique<MyAppManager>());
/// service.Kernel().registerService(std::make_shared<MyApp>());
/// @endcode
class VLK_APP_SERVICE_EXPORT ApplicationService : public QObject {
  Q_OBJECT

public:
  /// The service of the process, made by the first call.
  static ApplicationService& GetInstance();

  /// The host of the application's services and its waypoints.
  Taren::Core::Kernel& Kernel() noexcept { return m_kernel; }

  /// Switches the changing of workspaces off and on. The switch counts: it is on again after as many calls
  /// with true as there were with false; a call with true too many does nothing.
  void EnableWorkspaceSwitching(bool enable);
  /// Whether as many calls have enabled switching as have disabled it.
  bool isWorkspaceSwitchingEnabled() const noexcept { return m_switchingLocks == 0; }

  /// The application manager; null until one is set.
  IAppManager* GetAppManager() const noexcept { return m_appManager.get(); }
  /// See GetAppManager().
  void setAppManager(std::unique_ptr<IAppManager> manager);

  /// The settings; those of the user unless others were set.
  ConfigManager& GetConfigManager();
  /// Replaces the settings; null brings back those of the organisation and application name.
  void setConfigManager(std::unique_ptr<ConfigManager> manager);

  /// Registers a delegate, which is held weakly. Null, and one that is registered already, are ignored.
  /// Delegates are told apart by their owner: two pointers to different bases of one object are one delegate.
  void addShutdownProtocolDelegate(const std::shared_ptr<ShutdownProtocol>& delegate);
  /// Does nothing for a delegate that was never added.
  void removeShutdownProtocolDelegate(const std::shared_ptr<ShutdownProtocol>& delegate);
  /// How many delegates are registered and alive.
  qsizetype shutdownProtocolDelegateCount() const;

  /// Asks each delegate, in order of registration, whether the program may shut down; when all agree, tells
  /// each. Delegates that register meanwhile are asked too.
  /// @return whether all agreed; false also while another request is under way.
  bool requestShutdown();

Q_SIGNALS:
  /// Switching the workspace has become possible, or impossible.
  void workspaceSwitchingChanged(bool enabled);

private:
  ApplicationService();
  ~ApplicationService() override;
  void releaseWithApplication();
  static void release();
  std::shared_ptr<ShutdownProtocol> firstNotIn(const QList<std::weak_ptr<ShutdownProtocol>>& asked) const;

  Taren::Core::Kernel m_kernel;
  std::unique_ptr<IAppManager> m_appManager;
  std::unique_ptr<ConfigManager> m_configManager;
  QList<std::weak_ptr<ShutdownProtocol>> m_shutdownDelegates;
  bool m_shuttingDown = false;
  int m_switchingLocks = 0;
  std::atomic<bool> m_releaseRegistered{false};
};

} // namespace Vela::Services
