// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/toolbars/tool_bar_p.h>

#include <memory>

namespace Vela::UiBase {

/// The state of an ActionPanel, for subclasses that add to it.
class UI_BASE_EXPORT ActionPanelPrivate : public ToolBarPrivate {
public:
  ActionPanelPrivate();
  ~ActionPanelPrivate() override;

  /// The event filter of buttons that stay disabled.
  const std::unique_ptr<QObject> disabler;
};

} // namespace Vela::UiBase
