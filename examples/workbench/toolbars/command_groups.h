// SPDX-License-Identifier: MIT
#pragma once

#include <QList>

namespace Vela::UiBase {
class CommandBase;
}

namespace Workbench {

class MeshViewController;

/// Puts the commands of the mesh view into the groups of its controller, each of which stands for a bar: the
/// main toolbar shows ToolPanelGroup(), the action panel ActionPanelGroup(), and DynamicToolPanelGroup()
/// holds the groups that come and go. What stood in the groups before is removed.
///
/// The commands are those that the controller is about to get. The groups share them; menus and the command
/// manager know nothing of the groups.
void fillToolBarGroups(MeshViewController& controller, const QList<Vela::UiBase::CommandBase*>& commands);

} // namespace Workbench
