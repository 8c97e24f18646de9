// SPDX-License-Identifier: MIT
#pragma once

namespace Workbench {

/// What the left mouse button does.
enum EToolMode : int {
  PickMode = 0, ///< Clicks select.
  MeasureMode = 1,
  RectangleMode = 2, ///< Drags select.
};

} // namespace Workbench
