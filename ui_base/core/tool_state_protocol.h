// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/core/delegator.h>

namespace Vela::UiBase {

class InteractiveTool;

/// What an interactive tool tells the stack that holds it. Every callback does nothing by default.
class UI_BASE_EXPORT ToolStateProtocol {
public:
  ToolStateProtocol();
  ToolStateProtocol(const ToolStateProtocol&);
  ToolStateProtocol& operator=(const ToolStateProtocol&);
  virtual ~ToolStateProtocol();

  virtual void toolActivated(InteractiveTool* tool);
  virtual void toolDeactivated(InteractiveTool* tool);
  virtual void toolBeganOperating(InteractiveTool* tool);
  virtual void toolEndedOperating(InteractiveTool* tool);
  virtual void toolSuspended(InteractiveTool* tool);
  virtual void toolResumed(InteractiveTool* tool);
  virtual void toolCursorChange(InteractiveTool* tool);
};

} // namespace Vela::UiBase

extern template class UI_BASE_EXPORT Taren::Core::Broadcaster<Vela::UiBase::ToolStateProtocol>;
extern template class UI_BASE_EXPORT Taren::Core::Delegator<Vela::UiBase::ToolStateProtocol>;
