// SPDX-License-Identifier: MIT
#include "i_vc_app.h"

namespace Vela::UiBase {

IVCApp::IVCApp() = default;
IVCApp::~IVCApp() = default;

} // namespace Vela::UiBase
