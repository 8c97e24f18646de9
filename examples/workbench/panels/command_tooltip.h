// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/tooltips/tooltip_object.h>

#include <QLatin1String>

class QAction;

namespace Vela::UiBase {
class ArrowedWindow;
}

namespace Workbench {

/// The group that the tooltips of commands belong to: one of them is up at a time.
inline constexpr QLatin1String CommandTooltips("commands");

/// The rich tooltip of a button of a command: title, shortcut and status tip, and its CommandHelp in a
/// section that unfolds. It follows the command, and appears for the mouse and for the keyboard. Owned by the
/// button.
class CommandTooltip : public Vela::UiBase::TooltipObject {
  Q_OBJECT

public:
  CommandTooltip(QWidget& button, const QAction& command);

  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  static void keepInWindow(Vela::UiBase::ArrowedWindow& window);
};

} // namespace Workbench
