// SPDX-License-Identifier: MIT
#include "flyout_host.h"

namespace Vela::UiBase {

FlyoutHost::~FlyoutHost() = default;

} // namespace Vela::UiBase
