// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/ui_base_export.h>

namespace Vela::UiBase {

/// The button that opens a flyout, as the flyout's command sees it.
///
/// Implemented by the widget that FlyoutBase::ToolButton() names. Not owned through this type. Main thread
/// only.
class UI_BASE_EXPORT FlyoutHost {
public:
  /// Whether a click on the host is being handled, which opens the flyout by itself.
  virtual bool ClickedHandlerRequested() const = 0;
  /// Has the host do what a click does, without its action, when the event loop turns next.
  virtual void RequestClick() = 0;

protected:
  FlyoutHost() = default;
  FlyoutHost(const FlyoutHost&) = default;
  FlyoutHost& operator=(const FlyoutHost&) = default;
  virtual ~FlyoutHost();
};

} // namespace Vela::UiBase
