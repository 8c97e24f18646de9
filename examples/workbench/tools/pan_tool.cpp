// SPDX-License-Identifier: MIT
#include "pan_tool.h"

#include <workbench/mesh_view.h>

namespace Workbench {

PanTool::PanTool(MeshView* view) : MeshTool(view) {
  setIdleCursor(Qt::OpenHandCursor);
  setOperatingCursor(Qt::ClosedHandCursor);
}

void PanTool::startOperation() {
  if (const MeshView* const view = meshView())
    m_start = view->camera();
  MeshTool::startOperation();
}

bool PanTool::mouseMove(QMouseEvent* event) {
  if (!MeshTool::mouseMove(event))
    return false;
  if (MeshView* const view = meshView()) {
    Camera camera = m_start;
    camera.pan(event->position() - pressEvent().position(), view->size());
    view->setCamera(camera);
  }
  return true;
}

} // namespace Workbench
