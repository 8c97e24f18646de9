// SPDX-License-Identifier: MIT
#include "pick_tool.h"

#include <workbench/mesh_ops/selection.h>
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
  if (MeshView* const view = meshView(); view && isClick)
    selectAt(*view, event->position().toPoint(), event->modifiers());
  return true;
}

// The click before has dealt with the triangle; what became of it is done with all of the part.
bool PickTool::mouseDoubleClick(QMouseEvent* event) {
  MeshView* const view = meshView();
  const auto hit = view ? view->pick(event->position().toPoint()) : std::nullopt;
  if (!hit)
    return false;
  const TriangleSelection part = selectConnected(view->mesh(), hit->triangle);
  TriangleSelection selection = view->document().selection();
  if (selection.contains(hit->triangle))
    selection |= part;
  else
    selection -= part;
  view->document().setSelection(selection);
  return true;
}

} // namespace Workbench
