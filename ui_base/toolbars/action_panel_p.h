// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/toolbars/tool_bar_p.h>

#include <QColor>
#include <QMetaObject>

#include <memory>

namespace Vela::UiBase {

/// The state of an ActionPanel, for subclasses that add to it.
class UI_BASE_EXPORT ActionPanelPrivate : public ToolBarPrivate {
public:
  ActionPanelPrivate();
  ~ActionPanelPrivate() override;

  /// Enables a button as its action says, or keeps it disabled.
  void enable(ToolButton& button, bool enabled) const;

  /// The event filter of buttons that stay disabled.
  const std::unique_ptr<QObject> disabler;
  bool buttonsEnabled = true;
  QMetaObject::Connection busyDeath; // of the flyout that works
  QColor groupBackColor;             // the shared ones that the panel was given
  QColor borderColor;
};

} // namespace Vela::UiBase
