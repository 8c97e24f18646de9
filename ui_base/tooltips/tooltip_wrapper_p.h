// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/tooltips/a_tooltip_object_p.h>
#include <ui_base/tooltips/tooltip_wrapper.h>

namespace Vela::UiBase {

/// The state of a TooltipWrapper, for subclasses that add to it.
class UI_BASE_EXPORT TooltipWrapperPrivate : public ATooltipObjectPrivate {
public:
  TooltipWrapperPrivate();

  int showDuration;
};

} // namespace Vela::UiBase
