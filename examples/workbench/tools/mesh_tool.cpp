// SPDX-License-Identifier: MIT
#include "mesh_tool.h"

#include <workbench/mesh_view.h>

#include <QApplication>
#include <QLineF>

namespace Workbench {

using namespace Vela::UiBase;

MeshTool::MeshTool(MeshView* view) : InteractiveTool(view) {}

MeshView* MeshTool::meshView() const { return qobject_cast<MeshView*>(getView()); }

void MeshTool::startOperation() {
  m_dragging = false;
  InteractiveTool::startOperation();
}

bool MeshTool::mouseMove(QMouseEvent* event) {
  if (!InteractiveTool::mouseMove(event))
    return false;
  QLineF way(pressEvent().position(), event->position());
  if (!m_dragging && way.length() >= QApplication::startDragDistance()) {
    m_dragging = true;
    way.setLength(QApplication::startDragDistance());
    m_origin = way.p2();
  }
  return true;
}

} // namespace Workbench
