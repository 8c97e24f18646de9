// SPDX-License-Identifier: MIT
#include "tooltip_manager.h"

#include <QToolTip>

namespace Vela::UiBase {

TooltipManager& TooltipManager::GetInstance() {
  static TooltipManager instance;
  return instance;
}

void TooltipManager::onViewVisibilityChange(bool visible) {
  // The tool tip of a view that disappears would stay up until the mouse moves.
  if (!visible && QToolTip::isVisible())
    QToolTip::hideText();
  Q_EMIT viewVisibilityChanged(visible);
}

} // namespace Vela::UiBase
