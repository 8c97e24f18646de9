// SPDX-License-Identifier: MIT
#pragma once

namespace Vela::UiBase {

/// From now on assistive technologies see a MenuBarWidget as a menu bar and its buttons as menu items.
void installMenuBarAccessibility();

} // namespace Vela::UiBase
