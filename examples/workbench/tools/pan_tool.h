// SPDX-License-Identifier: MIT
#pragma once

#include <workbench/camera.h>
#include <workbench/tools/mesh_tool.h>

namespace Workbench {

/// Shifts the picture along with the mouse.
class PanTool : public MeshTool {
public:
  explicit PanTool(MeshView* view);

  bool mouseMove(QMouseEvent* event) override;

protected:
  void startOperation() override;

private:
  Camera m_start; // at the press
};

} // namespace Workbench
