// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/toolbars/menu_state.h>
#include <ui_base/ui_base_export.h>

#include <QList>
#include <QString>

namespace Vela::UiBase {

/// How a widget is hosted by the buttons whose menu it is, at one moment: what a view for developers shows.
/// Widgets are named by their object name, or by their class where they have none.
struct HostingInfo {
  QString widget;
  QString home;       ///< Its parent when it is not hosted; empty for a widget without.
  QString window;     ///< The top-level window in which it stands now.
  QString turn;       ///< The button that shows it, or showed it last; empty before the first time.
  QString controller; ///< What stands in for that button, or empty.
  QString command;    ///< The identifier of the command that is worked with it, if that has begun.
  int buttons = 0;    ///< How many buttons there are to show it.
  MenuState::EPhase phase = MenuState::Closed;

  bool operator==(const HostingInfo&) const = default;
};

/// All widgets that are menus of buttons, in no particular order. Main thread only.
UI_BASE_EXPORT QList<HostingInfo> hostedWidgets();

} // namespace Vela::UiBase
