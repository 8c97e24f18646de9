// SPDX-License-Identifier: MIT
#include "i_app_manager.h"

namespace Vela::Services {

IAppManager::~IAppManager() = default;

} // namespace Vela::Services
