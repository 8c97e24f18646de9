// SPDX-License-Identifier: MIT
#pragma once

#include <vlk_app_service/application_service.h>
#include <vlk_app_service/config_manager.h>

namespace Workbench {

/// The settings of the program, which outlive it. Main thread only.
inline Vela::Services::ConfigManager& config() {
  return Vela::Services::ApplicationService::GetInstance().GetConfigManager();
}

} // namespace Workbench
