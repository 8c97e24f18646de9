// SPDX-License-Identifier: MIT
#pragma once

#include <vlk_app_service/vlk_app_service_export.h>

#include <QList>

namespace Vela::UiBase {
class CmdsViewController;
class CommandBase;
} // namespace Vela::UiBase

namespace Vela::Services {

/// Gives the views of an application their commands. An application derives from it and hands it to
/// ApplicationService::setAppManager().
class VLK_APP_SERVICE_EXPORT IAppManager {
public:
  IAppManager() = default;
  virtual ~IAppManager();
  IAppManager(const IAppManager&) = delete;
  IAppManager& operator=(const IAppManager&) = delete;

  /// Makes the commands of a controller, in the order in which it shall hold them. Called on the main thread
  /// each time the controller's view loads. The controller adopts the commands; null ones are passed over.
  virtual QList<UiBase::CommandBase*> commandsFor(UiBase::CmdsViewController* controller) = 0;
};

} // namespace Vela::Services
