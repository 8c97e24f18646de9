// SPDX-License-Identifier: MIT
#pragma once

namespace Vela::UiBase {

/// The mark that a dialog shows beside its text.
enum EDialogSeverity : int {
  DialogPlain = 0,
  DialogInfo = 1,
  DialogWarning = 2,
  DialogError = 3,
};

} // namespace Vela::UiBase
