// SPDX-License-Identifier: MIT
#pragma once

class QMenu;

namespace Workbench {

class MeshViewController;

/// Makes the menu that a right click on the view opens. The view owns it; it deletes itself when it closes.
/// @return null when there is no view.
QMenu* makeContextMenu(const MeshViewController& controller);

} // namespace Workbench
