// SPDX-License-Identifier: MIT
#include "mesh_tools.h"

#include <ui_base/tools/tool_stack.h>
#include <workbench/tools/measure_tool.h>
#include <workbench/tools/orbit_tool.h>
#include <workbench/tools/pan_tool.h>
#include <workbench/tools/pick_tool.h>
#include <workbench/tools/rectangle_select_tool.h>
#include <workbench/tools/zoom_tool.h>

namespace Workbench {

using namespace Vela::UiBase;

MeshTools::MeshTools(MeshView* view)
    : m_orbit(std::make_shared<OrbitTool>(view)),
      m_pan(std::make_shared<PanTool>(view)),
      m_zoom(std::make_shared<ZoomTool>(view)),
      m_pick(std::make_shared<PickTool>(view)),
      m_measure(std::make_shared<MeasureTool>(view)),
      m_rectangle(std::make_shared<RectangleSelectTool>(view)) {}

void MeshTools::pushOn(ToolStack& stack) const {
  stack.pushTool(LeftButton, m_pick);
  stack.pushTool(RightButton, m_orbit);
  stack.pushTool(MiddleButton, m_pan);
  stack.pushTool(NoButton, m_zoom);
}

void MeshTools::enter(EToolMode mode, ToolStack& stack) const {
  for (Tool top = stack.getTool(LeftButton); top && top != m_pick; top = stack.getTool(LeftButton))
    stack.popTool(LeftButton);
  if (mode == MeasureMode)
    stack.pushTool(LeftButton, m_measure);
  else if (mode == RectangleMode)
    stack.pushTool(LeftButton, m_rectangle);
}

} // namespace Workbench
