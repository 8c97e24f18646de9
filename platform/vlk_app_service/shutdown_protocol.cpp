// SPDX-License-Identifier: MIT
#include "shutdown_protocol.h"

namespace Vela::Services {

ShutdownProtocol::ShutdownProtocol() = default;
ShutdownProtocol::ShutdownProtocol(const ShutdownProtocol&) = default;
ShutdownProtocol& ShutdownProtocol::operator=(const ShutdownProtocol&) = default;
ShutdownProtocol::~ShutdownProtocol() = default;

bool ShutdownProtocol::mayShutDown() { return true; }

void ShutdownProtocol::onShutDown() {}

} // namespace Vela::Services
