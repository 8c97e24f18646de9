// SPDX-License-Identifier: MIT
#pragma once

#include <workbench/tools/mesh_tool.h>

namespace Workbench {

/// A click selects the triangle that is clicked, a double click everything that hangs together with it. With
/// Shift it is added, with Ctrl it is toggled. A click on the background selects nothing.
class PickTool : public MeshTool {
public:
  explicit PickTool(MeshView* view);

  bool mouseRelease(QMouseEvent* event) override;
  bool mouseDoubleClick(QMouseEvent* event) override;
  bool perform(const Vela::UiBase::ToolOperation& operation) override;
};

} // namespace Workbench
