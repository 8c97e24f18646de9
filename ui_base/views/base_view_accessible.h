// SPDX-License-Identifier: MIT
#pragma once

namespace Vela::UiBase {

/// Assistive technologies find in a covered view only what lies in front of it from now on.
void makeViewsAccessible();

} // namespace Vela::UiBase
