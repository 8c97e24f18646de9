// SPDX-License-Identifier: MIT
#include "cmd_mgr_protocol.h"

#include <QString>

namespace Vela::UiBase {

CmdMgrProtocol::CmdMgrProtocol() = default;
CmdMgrProtocol::CmdMgrProtocol(const CmdMgrProtocol&) = default;
CmdMgrProtocol& CmdMgrProtocol::operator=(const CmdMgrProtocol&) = default;
CmdMgrProtocol::~CmdMgrProtocol() = default;

void CmdMgrProtocol::commandAdded(CmdMgr*, CommandBase*) {}
// Overriders keep their own copy, as the task that calls them ends.
void CmdMgrProtocol::commandRemoved(CmdMgr*, QString) {} // NOLINT(performance-unnecessary-value-param)

} // namespace Vela::UiBase

template class Taren::Core::Broadcaster<Vela::UiBase::CmdMgrProtocol>;
template class Taren::Core::Delegator<Vela::UiBase::CmdMgrProtocol>;
