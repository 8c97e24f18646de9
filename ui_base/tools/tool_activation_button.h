// SPDX-License-Identifier: MIT
#pragma once

namespace Vela::UiBase {

/// The mouse button that drives a tool: the values of Qt::MouseButton.
enum EToolActivationButton : int {
  NoButton = 0,   ///< The tool that takes the wheel.
  LeftButton = 1, ///< The primary tool, which also takes the keys.
  RightButton = 2,
  MiddleButton = 4,
};

} // namespace Vela::UiBase
