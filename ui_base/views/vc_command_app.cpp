// SPDX-License-Identifier: MIT
#include "vc_command_app.h"

namespace Vela::UiBase {

VCCommandApp::VCCommandApp() = default;
VCCommandApp::~VCCommandApp() = default;

} // namespace Vela::UiBase
