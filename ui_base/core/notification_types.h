// SPDX-License-Identifier: MIT
#pragma once

namespace Vela::UiBase {

/// How a notification comes and goes.
enum ENotificationFadeOption : int {
  FadeOutOnly = 0,  ///< Appears at once, fades out.
  FadeInOnly = 1,   ///< Fades in, disappears at once.
  FadeInAndOut = 2, ///< Fades in and fades out.
};

/// How much a notification matters. A more severe one is shown before the ones that wait, and is never
/// replaced by a less severe one.
enum ENotificationSeverity : int {
  NotificationInfo = 0,
  NotificationWarning = 1,
  NotificationError = 2,
};

} // namespace Vela::UiBase
