// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/core/delegator.h>

namespace Vela::UiBase {

class InteractiveTool;

/// What an interactive tool tells the stack that holds it. Every callback does nothing by default.
class UI_BASE_EXPORT ToolStateProtocol {
public:
  ToolStateProtocol();
  /// Observers may be copied.
  ToolStateProtocol(const ToolStateProtocol&);
  ToolStateProtocol& operator=(const ToolStateProtocol&);
  virtual ~ToolStateProtocol();

  /// The tool serves its button from now on.
  virtual void toolActivated(InteractiveTool* tool);
  /// The tool no longer serves its button.
  virtual void toolDeactivated(InteractiveTool* tool);
  /// A press has begun something.
  virtual void toolBeganOperating(InteractiveTool* tool);
  /// What a press began has ended, or was called off.
  virtual void toolEndedOperating(InteractiveTool* tool);
  /// Another tool lies over it until toolResumed().
  virtual void toolSuspended(InteractiveTool* tool);
  /// No other tool lies over it any more.
  virtual void toolResumed(InteractiveTool* tool);
  /// The cursor of the tool is another one.
  virtual void toolCursorChange(InteractiveTool* tool);
};

} // namespace Vela::UiBase

extern template class UI_BASE_EXPORT Taren::Core::Broadcaster<Vela::UiBase::ToolStateProtocol>;
extern template class UI_BASE_EXPORT Taren::Core::Delegator<Vela::UiBase::ToolStateProtocol>;
