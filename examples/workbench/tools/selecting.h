// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/tools/tool_operation.h>
#include <workbench/mesh_ops/triangle_selection.h>
#include <workbench/render/frame.h>

#include <optional>

namespace Workbench {

class MeshView;

/// What a click and a rectangle select, by the keys that were held: with Shift it is added, with Control a
/// click takes a triangle in or out and a rectangle takes away. All of it can be told as an operation, and
/// done again.
namespace Selecting {

/// A click on a triangle; on nothing it selects nothing.
void click(MeshView& view, const std::optional<Frame::Hit>& hit, Qt::KeyboardModifiers modifiers);
/// A second click: what became of the triangle is done with all that hangs together with it.
void clickAgain(MeshView& view, const Frame::Hit& hit);
/// The triangles that are seen within a rectangle.
void within(MeshView& view, const QRectF& rectangle, Qt::KeyboardModifiers modifiers);

/// @name Operations, told with the command that has brought the tool
/// @{
void tellClick(const QString& command, const std::optional<Frame::Hit>& hit, Qt::KeyboardModifiers modifiers);
void tellClickAgain(const QString& command, const Frame::Hit& hit);
void tellWithin(const QString& command, MeshView& view, const QRectF& rectangle,
                Qt::KeyboardModifiers modifiers);
/// @return false for another operation, and for one that does not go with the mesh.
bool perform(MeshView& view, const Vela::UiBase::ToolOperation& operation);
/// @}

} // namespace Selecting
} // namespace Workbench
