// SPDX-License-Identifier: MIT
#pragma once

#include <workbench/camera.h>
#include <workbench/tools/mesh_tool.h>

namespace Workbench {

/// Turns the camera around its target, as if the mesh were taken by its front. A click leaves the camera as
/// it is and asks for the view's menu.
class OrbitTool : public MeshTool {
public:
  explicit OrbitTool(MeshView* view);

  bool mouseMove(QMouseEvent* event) override;
  bool mouseRelease(QMouseEvent* event) override;

protected:
  void startOperation() override;
  void endOperation() override;

private:
  Camera m_start; // at the press
};

} // namespace Workbench
