// SPDX-License-Identifier: MIT
#include "command_state_protocol.h"

namespace Vela::UiBase {

CommandStateProtocol::CommandStateProtocol() = default;
CommandStateProtocol::CommandStateProtocol(const CommandStateProtocol&) = default;
CommandStateProtocol& CommandStateProtocol::operator=(const CommandStateProtocol&) = default;
CommandStateProtocol::~CommandStateProtocol() = default;

void CommandStateProtocol::commandBegan(CommandBase*) {}
void CommandStateProtocol::commandEnded(CommandBase*) {}
void CommandStateProtocol::commandBeganExecuting(CommandBase*, bool) {}
void CommandStateProtocol::commandEndedExecuting(CommandBase*, bool) {}

} // namespace Vela::UiBase

template class Taren::Core::Broadcaster<Vela::UiBase::CommandStateProtocol>;
template class Taren::Core::Delegator<Vela::UiBase::CommandStateProtocol>;
