// SPDX-License-Identifier: MIT
#pragma once

#include <workbench/tools/mesh_tool.h>

namespace Workbench {

/// A drag selects the triangles that are seen within a rectangle. With Shift they are added, with Ctrl taken
/// away. A click selects the triangle that is clicked. A drag that loses the mouse selects nothing.
class RectangleSelectTool : public MeshTool {
public:
  explicit RectangleSelectTool(MeshView* view);

  bool mouseMove(QMouseEvent* event) override;
  bool mouseRelease(QMouseEvent* event) override;
  bool perform(const Vela::UiBase::ToolOperation& operation) override;

  void activate() override;

protected:
  void endOperation() override;
};

} // namespace Workbench
