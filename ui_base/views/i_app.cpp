// SPDX-License-Identifier: MIT
#include "i_app.h"

namespace Vela::UiBase {

IApp::IApp() = default;
IApp::~IApp() = default;

} // namespace Vela::UiBase
