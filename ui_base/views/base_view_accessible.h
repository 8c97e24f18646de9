// SPDX-License-Identifier: MIT
#pragma once

namespace Vela::UiBase {

/// From now on assistive technologies find a window, a canvas or a pane in a view, by its accessible name or
/// its title, and in a covered view only what lies in front of it.
void makeViewsAccessible();

} // namespace Vela::UiBase
