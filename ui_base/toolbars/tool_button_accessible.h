// SPDX-License-Identifier: MIT
#pragma once

namespace Vela::UiBase {

class ToolButtonWithMenu;

/// Buttons with a menu say from now on that they open something, and whether it is open.
void makeMenuButtonsAccessible();
/// The menu of the button was shown or hidden.
void announceMenuState(ToolButtonWithMenu& button);

} // namespace Vela::UiBase
