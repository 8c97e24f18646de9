// SPDX-License-Identifier: MIT
#include "orbit_tool.h"

#include <workbench/mesh_view.h>
#include <workbench/tools/tool_cursors.h>

namespace Workbench {
namespace {

constexpr double DegreesPerPixel = 0.4;

} // namespace

OrbitTool::OrbitTool(MeshView* view) : MeshTool(view) { setIdleCursor(Qt::ArrowCursor); }

void OrbitTool::startOperation() {
  if (const MeshView* const view = meshView())
    m_start = view->camera();
  setOperatingCursor(iconCursor(QStringLiteral("orbit"))); // not before: an icon takes time
  MeshTool::startOperation();
}

bool OrbitTool::mouseMove(QMouseEvent* event) {
  if (!MeshTool::mouseMove(event))
    return false;
  MeshView* const view = meshView();
  if (!view || !isDragging())
    return true;
  const QPointF way = (event->position() - dragOrigin()) * DegreesPerPixel;
  Camera camera = m_start;
  camera.orbit(-way.x(), way.y());
  view->setPivotShown(true);
  view->setCamera(camera);
  return true;
}

bool OrbitTool::mouseRelease(QMouseEvent* event) {
  const bool isClick = isOperating() && !isDragging();
  if (!MeshTool::mouseRelease(event))
    return false;
  if (MeshView* const view = meshView(); view && isClick)
    view->requestMenu(event->globalPosition().toPoint());
  return true;
}

void OrbitTool::endOperation() {
  if (MeshView* const view = meshView())
    view->setPivotShown(false);
  MeshTool::endOperation();
}

} // namespace Workbench
