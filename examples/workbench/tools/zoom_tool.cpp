// SPDX-License-Identifier: MIT
#include "zoom_tool.h"

#include <workbench/mesh_view.h>
#include <workbench/session/camera_values.h>

#include <QWheelEvent>

#include <cmath>

namespace Workbench {
namespace {

constexpr double FactorPerNotch = 1.2;

} // namespace

ZoomTool::ZoomTool(MeshView* view) : MeshTool(view) { setIdleCursor(Qt::ArrowCursor); }

QVector3D ZoomTool::anchorAt(MeshView& view, const QPointF& position) {
  if (position == m_position && view.camera() == m_camera)
    return m_anchor;
  const auto hit = view.pick(position.toPoint());
  return hit ? hit->point : view.camera().pointInTargetPlane(position, view.size());
}

bool ZoomTool::mouseWheel(QWheelEvent* event) {
  MeshView* const view = meshView();
  const double notches = event->angleDelta().y() / double(QWheelEvent::DefaultDeltasPerStep);
  if (!view || view->mesh().isEmpty() || notches == 0)
    return false;
  m_anchor = anchorAt(*view, event->position());
  m_position = event->position();
  m_camera = view->camera();
  m_camera.zoomAt(std::pow(FactorPerNotch, notches), m_anchor);
  view->setCamera(m_camera);
  tellLook(*view);
  return true;
}

} // namespace Workbench
