// SPDX-License-Identifier: MIT
#include "camera_keys.h"

#include <QKeyEvent>

namespace Workbench {
namespace {

constexpr double OrbitStep = 5; // degrees
constexpr double PanStep = 24;  // pixels
constexpr double ZoomFactor = 1.2;

// As the mouse would move.
QPointF directionOf(int key) {
  switch (key) {
  case Qt::Key_Left:
    return {-1, 0};
  case Qt::Key_Right:
    return {1, 0};
  case Qt::Key_Up:
    return {0, -1};
  case Qt::Key_Down:
    return {0, 1};
  default:
    return {};
  }
}

} // namespace

std::optional<Camera> movedByKey(const Camera& camera, const QKeyEvent& event, const QSizeF& viewport) {
  if (event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier))
    return std::nullopt;
  Camera moved = camera;
  const QPointF direction = directionOf(event.key());
  if (!direction.isNull() && event.modifiers().testFlag(Qt::ShiftModifier))
    moved.pan(direction * PanStep, viewport);
  else if (!direction.isNull())
    moved.orbit(-direction.x() * OrbitStep, direction.y() * OrbitStep);
  else if (event.key() == Qt::Key_Plus || event.key() == Qt::Key_Equal)
    moved.zoomAt(ZoomFactor, camera.target());
  else if (event.key() == Qt::Key_Minus)
    moved.zoomAt(1 / ZoomFactor, camera.target());
  else
    return std::nullopt;
  return moved;
}

} // namespace Workbench
