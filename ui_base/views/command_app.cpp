// SPDX-License-Identifier: MIT
#include "command_app.h"

namespace Vela::UiBase {

CommandApp::CommandApp() = default;
CommandApp::~CommandApp() = default;

Taren::Core::ERcmStatus CommandApp::Initialize() { return Taren::Core::RcmSuccess; }

void CommandApp::Terminate() {}

} // namespace Vela::UiBase
