// SPDX-License-Identifier: MIT
#include "photo_tools.h"

#include <workbench/photos/photo_view.h>

#include <QMouseEvent>
#include <QWheelEvent>

#include <cmath>

namespace Workbench {

PhotoPanTool::PhotoPanTool(PhotoView* view) : InteractiveTool(view) {
  setIdleCursor(Qt::OpenHandCursor);
  setOperatingCursor(Qt::ClosedHandCursor);
}

void PhotoPanTool::startOperation() {
  if (const auto* const view = qobject_cast<PhotoView*>(getView()))
    m_start = view->viewport();
  InteractiveTool::startOperation();
}

bool PhotoPanTool::mouseMove(QMouseEvent* event) {
  if (!InteractiveTool::mouseMove(event))
    return false;
  if (auto* const view = qobject_cast<PhotoView*>(getView())) {
    PhotoViewport viewport = m_start;
    viewport.pan(event->position() - pressEvent().position());
    view->setViewport(viewport);
  }
  return true;
}

PhotoZoomTool::PhotoZoomTool(PhotoView* view) : InteractiveTool(view) { setIdleCursor(Qt::ArrowCursor); }

bool PhotoZoomTool::mouseWheel(QWheelEvent* event) {
  auto* const view = qobject_cast<PhotoView*>(getView());
  const double notches = event->angleDelta().y() / double(QWheelEvent::DefaultDeltasPerStep);
  if (!view || notches == 0)
    return false;
  PhotoViewport viewport = view->viewport();
  viewport.zoomAt(std::pow(PhotoViewport::ZoomStep, notches), event->position());
  view->setViewport(viewport);
  return true;
}

} // namespace Workbench
