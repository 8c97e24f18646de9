// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/core/delegator.h>

namespace Vela::UiBase {

class BaseViewController;

/// Where a presented view comes from. The presentation itself is not animated: the direction is kept for
/// containers that present a view their own way.
enum ETransitionDirection : int {
  FromLeft = 0,
  FromRight = 1,
  FromTop = 2,
  FromBottom = 3,
  NoTransition = 4, ///< Also the value of a controller that is not presented.
};

/// Lets a container, a tabbed frame for instance, take over the presentation of views. Every callback
/// declines by default.
class UI_BASE_EXPORT PresentViewProtocol {
public:
  PresentViewProtocol();
  /// Observers may be copied.
  PresentViewProtocol(const PresentViewProtocol&);
  PresentViewProtocol& operator=(const PresentViewProtocol&);
  virtual ~PresentViewProtocol();

  /// @return true when the receiver presented the controller.
  virtual bool presentViewController(BaseViewController* controller, ETransitionDirection direction);
  /// @return true when the receiver dismissed the controller that asks.
  virtual bool dismissViewController();
};

} // namespace Vela::UiBase

extern template class UI_BASE_EXPORT Taren::Core::Broadcaster<Vela::UiBase::PresentViewProtocol>;
extern template class UI_BASE_EXPORT Taren::Core::Delegator<Vela::UiBase::PresentViewProtocol>;
