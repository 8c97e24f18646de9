// SPDX-License-Identifier: MIT
#pragma once

namespace Vela::UiBase {

class ToolButton;
class ToolButtonWithMenu;

/// Tool buttons say from now on whether they are locked, and those with a menu that they open something and
/// whether it is open.
void makeToolButtonsAccessible();
/// The menu of the button was shown or hidden.
void announceMenuState(ToolButtonWithMenu& button);
/// The button was locked or unlocked.
void announceEnabledState(ToolButton& button);

} // namespace Vela::UiBase
