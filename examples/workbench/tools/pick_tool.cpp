// SPDX-License-Identifier: MIT
#include "pick_tool.h"

#include <workbench/commands/mode_command.h>
#include <workbench/mesh_view.h>
#include <workbench/tools/selecting.h>

namespace Workbench {

PickTool::PickTool(MeshView* view) : MeshTool(view) {
  setIdleCursor(Qt::ArrowCursor);
  setOperatingCursor(Qt::PointingHandCursor);
}

bool PickTool::mouseRelease(QMouseEvent* event) {
  const bool isClick = isOperating() && !isDragging();
  if (!MeshTool::mouseRelease(event))
    return false;
  if (MeshView* const view = meshView(); view && isClick) {
    const auto hit = view->pick(event->position().toPoint());
    Selecting::click(*view, hit, event->modifiers());
    Selecting::tellClick(ModeCommand::idOf(PickMode), hit, event->modifiers());
  }
  return true;
}

// The click before has dealt with the triangle.
bool PickTool::mouseDoubleClick(QMouseEvent* event) {
  MeshView* const view = meshView();
  const auto hit = view ? view->pick(event->position().toPoint()) : std::nullopt;
  if (!hit)
    return false;
  Selecting::clickAgain(*view, *hit);
  Selecting::tellClickAgain(ModeCommand::idOf(PickMode), *hit);
  return true;
}

bool PickTool::perform(const Vela::UiBase::ToolOperation& operation) {
  MeshView* const view = meshView();
  return view && operation.command == ModeCommand::idOf(PickMode) && Selecting::perform(*view, operation);
}

} // namespace Workbench
