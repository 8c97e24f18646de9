// SPDX-License-Identifier: MIT
#pragma once

class QMenu;
class QPoint;

namespace Workbench {

class MeshViewController;

/// Makes the menu that a right click on the view at a place of the screen opens. The view owns it; it deletes
/// itself when it closes.
/// @return null when there is no view.
QMenu* makeContextMenu(const MeshViewController& controller, const QPoint& position);

} // namespace Workbench
