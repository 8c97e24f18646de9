// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/ui_base_export.h>

class QWidget;

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
  /// Of the hosts that share the flyout the one that would open it now, as a widget; this one when it does
  /// not share it.
  virtual QWidget* CurrentHost() = 0;

protected:
  FlyoutHost() = default;
  FlyoutHost(const FlyoutHost&) = default;
  FlyoutHost& operator=(const FlyoutHost&) = default;
  virtual ~FlyoutHost();
};

} // namespace Vela::UiBase
