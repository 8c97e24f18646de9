// SPDX-License-Identifier: MIT
#include "rectangle_select_tool.h"

#include <workbench/mesh_view.h>
#include <workbench/tools/selecting.h>
#include <workbench/tools/tool_cursors.h>

namespace Workbench {

RectangleSelectTool::RectangleSelectTool(MeshView* view) : MeshTool(view) {
  setIdleCursor(crosshairCursor(QStringLiteral("rectangle_selection")));
  setOperatingCursor(Qt::CrossCursor);
}

bool RectangleSelectTool::mouseMove(QMouseEvent* event) {
  if (!MeshTool::mouseMove(event))
    return false;
  if (MeshView* const view = meshView(); view && isDragging())
    view->setRubberBand(QRectF(pressEvent().position(), event->position()).normalized());
  return true;
}

bool RectangleSelectTool::mouseRelease(QMouseEvent* event) {
  const QRectF rectangle = QRectF(pressEvent().position(), event->position()).normalized();
  const Qt::KeyboardModifiers modifiers = pressEvent().modifiers();
  const bool isClick = !isDragging();
  if (!MeshTool::mouseRelease(event))
    return false;
  MeshView* const view = meshView();
  if (!view || view->mesh().isEmpty())
    return true;
  if (isClick)
    selectAt(*view, event->position().toPoint(), modifiers);
  else
    selectWithin(*view, rectangle, modifiers);
  return true;
}

void RectangleSelectTool::endOperation() {
  if (MeshView* const view = meshView())
    view->setRubberBand({});
  MeshTool::endOperation();
}

} // namespace Workbench
