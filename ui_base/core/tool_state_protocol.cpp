// SPDX-License-Identifier: MIT
#include "tool_state_protocol.h"

namespace Vela::UiBase {

ToolStateProtocol::ToolStateProtocol() = default;
ToolStateProtocol::ToolStateProtocol(const ToolStateProtocol&) = default;
ToolStateProtocol& ToolStateProtocol::operator=(const ToolStateProtocol&) = default;
ToolStateProtocol::~ToolStateProtocol() = default;

void ToolStateProtocol::toolActivated(InteractiveTool*) {}
void ToolStateProtocol::toolDeactivated(InteractiveTool*) {}
void ToolStateProtocol::toolBeganOperating(InteractiveTool*) {}
void ToolStateProtocol::toolEndedOperating(InteractiveTool*) {}
void ToolStateProtocol::toolSuspended(InteractiveTool*) {}
void ToolStateProtocol::toolResumed(InteractiveTool*) {}
void ToolStateProtocol::toolCursorChange(InteractiveTool*) {}

} // namespace Vela::UiBase

template class Taren::Core::Broadcaster<Vela::UiBase::ToolStateProtocol>;
template class Taren::Core::Delegator<Vela::UiBase::ToolStateProtocol>;
