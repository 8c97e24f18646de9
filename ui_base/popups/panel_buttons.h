// SPDX-License-Identifier: MIT
#pragma once

#include <QFlags>

namespace Vela::UiBase {

/// A button of a panel through which something is worked, a FlyoutBase or an MDialogBase.
enum EPanelButton : unsigned {
  NoPanelButton = 0,
  ApplyButton = 1,
  ResetButton = 2,
  CancelButton = 4,
  CloseButton = 8,
  AllPanelButtons = ApplyButton | ResetButton | CancelButton | CloseButton,
};
Q_DECLARE_FLAGS(PanelButtons, EPanelButton)
Q_DECLARE_OPERATORS_FOR_FLAGS(PanelButtons)

/// The buttons as the four questions that older signatures ask.
constexpr PanelButtons panelButtons(bool apply, bool reset, bool cancel, bool close) noexcept {
  return PanelButtons(apply ? ApplyButton : NoPanelButton) | (reset ? ResetButton : NoPanelButton) |
         (cancel ? CancelButton : NoPanelButton) | (close ? CloseButton : NoPanelButton);
}

} // namespace Vela::UiBase
