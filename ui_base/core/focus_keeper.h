// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/ui_base_export.h>

#include <QPointer>
#include <QWidget>

namespace Vela::UiBase {

/// Remembers who had the focus before something came that takes it, and gives it back when that goes.
///
/// @code
/// m_focus.keep();                  // as the panel is shown
/// …
/// m_focus.giveBackFrom(*m_panel);  // as it is hidden; not if the user has put the focus elsewhere since
/// @endcode
class UI_BASE_EXPORT FocusKeeper {
public:
  /// Whoever has the focus now is to get it back.
  void keep();
  /// Gives the focus back if it is in a widget, and forgets who had it in any case.
  /// @return whether it was given back; not to a widget that cannot be seen or is disabled.
  bool giveBackFrom(const QWidget& taker, Qt::FocusReason reason = Qt::OtherFocusReason);

  /// Whether a widget, or something in it, has the focus.
  static bool isIn(const QWidget& widget);

private:
  QPointer<QWidget> m_before;
};

} // namespace Vela::UiBase
