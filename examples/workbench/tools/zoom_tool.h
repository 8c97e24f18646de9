// SPDX-License-Identifier: MIT
#pragma once

#include <workbench/camera.h>
#include <workbench/tools/mesh_tool.h>

namespace Workbench {

/// The wheel moves the camera towards what is under the mouse, or away from it; that point keeps its place.
class ZoomTool : public MeshTool {
public:
  explicit ZoomTool(MeshView* view);

  bool mouseWheel(QWheelEvent* event) override;

private:
  QVector3D anchorAt(MeshView& view, const QPointF& position);

  // The zoom before. When nothing changed since, it goes on around the same point, without looking for it.
  QPointF m_position;
  QVector3D m_anchor;
  Camera m_camera;
};

} // namespace Workbench
