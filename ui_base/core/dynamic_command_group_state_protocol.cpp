// SPDX-License-Identifier: MIT
#include "dynamic_command_group_state_protocol.h"

namespace Vela::UiBase {

DynamicCommandGroupStateProtocol::DynamicCommandGroupStateProtocol() = default;
DynamicCommandGroupStateProtocol::DynamicCommandGroupStateProtocol(const DynamicCommandGroupStateProtocol&) =
    default;
DynamicCommandGroupStateProtocol&
DynamicCommandGroupStateProtocol::operator=(const DynamicCommandGroupStateProtocol&) = default;
DynamicCommandGroupStateProtocol::~DynamicCommandGroupStateProtocol() = default;

void DynamicCommandGroupStateProtocol::commandGroupBegan(CommandGroup*) {}
void DynamicCommandGroupStateProtocol::commandGroupEnded(CommandGroup*) {}

} // namespace Vela::UiBase

template class Taren::Core::Broadcaster<Vela::UiBase::DynamicCommandGroupStateProtocol>;
template class Taren::Core::Delegator<Vela::UiBase::DynamicCommandGroupStateProtocol>;
