// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace Vela::UiBase {
class CommandBase;
class MenuBuilder;
} // namespace Vela::UiBase

namespace Workbench {

/// The name of the item in the menu bar.
QString paletteItemName();

/// Adds an item to the end of a menu bar that switches between the light and the dark palette, with the
/// picture of the one that a click changes to. The command does the work: the item follows the palette in
/// use, whoever changes it, is disabled with the command, and goes with it.
void addPaletteItem(Vela::UiBase::MenuBuilder& menus, Vela::UiBase::CommandBase& command);

} // namespace Workbench
