// SPDX-License-Identifier: MIT
#include "i_service.h"

namespace Taren::Core {

IService::~IService() = default;

void IService::Terminate() {}

} // namespace Taren::Core
