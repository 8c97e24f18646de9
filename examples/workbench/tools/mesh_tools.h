// SPDX-License-Identifier: MIT
#pragma once

#include <workbench/tools/tool_mode.h>

#include <memory>

namespace Vela::UiBase {
class InteractiveTool;
class ToolStack;
} // namespace Vela::UiBase

namespace Workbench {

class MeshView;

/// The tools of a mesh view: one for each mouse button and one for the wheel, and on the left button, over
/// the one that picks, that of the mode.
class MeshTools {
public:
  explicit MeshTools(MeshView* view);

  /// Gives the stack, which has none yet, its tools. They are those of PickMode.
  void pushOn(Vela::UiBase::ToolStack& stack) const;
  /// Takes away whatever lies over the tool that picks, and puts that of the mode there.
  void enter(EToolMode mode, Vela::UiBase::ToolStack& stack) const;

private:
  using Tool = std::shared_ptr<Vela::UiBase::InteractiveTool>;

  Tool m_orbit;
  Tool m_pan;
  Tool m_zoom;
  Tool m_pick;
  Tool m_measure;
  Tool m_rectangle;
};

} // namespace Workbench
