// SPDX-License-Identifier: MIT
#pragma once

class QToolButton;

namespace Vela::UiBase {

class ToolButton;

/// Assistive technologies hear from now on what toolbars are called, a sub-toolbar by the name of its button;
/// whether tool buttons are locked or out of sight; and of those with a menu, and of the list of the buttons
/// that have no room, that they open something and whether it is open.
void makeToolBarsAccessible();
/// The menu of the button was shown or hidden.
void announceMenuState(QToolButton& button);
/// The button was locked or unlocked.
void announceEnabledState(ToolButton& button);

} // namespace Vela::UiBase
