// SPDX-License-Identifier: MIT
#pragma once

#include <QLatin1String>

namespace Vela::UiBase {
class ToolButton;
}

namespace Workbench {

/// The group that the tooltips of commands belong to: one of them is up at a time.
inline constexpr QLatin1String CommandTooltips("commands");

/// Gives the button of a command, or of a group of commands, a rich tooltip: title, shortcut and status tip,
/// and the CommandHelp in a section that unfolds. It follows the command, and appears for the mouse and for
/// the keyboard. Once for each button.
void giveCommandTooltip(Vela::UiBase::ToolButton& button);

} // namespace Workbench
