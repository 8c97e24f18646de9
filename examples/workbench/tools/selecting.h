// SPDX-License-Identifier: MIT
#pragma once

#include <workbench/mesh_ops/triangle_selection.h>

#include <QPoint>
#include <Qt>

namespace Workbench {

class MeshView;

/// Selects the triangle that is seen at a position: alone, in addition (Shift), or toggles it (Ctrl). Where
/// none is seen nothing is selected any more, unless a modifier is held.
void selectAt(MeshView& view, const QPoint& position, Qt::KeyboardModifiers modifiers);

/// Selects what is seen within a rectangle: alone, in addition (Shift), or takes it away (Ctrl).
void selectWithin(MeshView& view, const QRectF& rectangle, Qt::KeyboardModifiers modifiers);

} // namespace Workbench
