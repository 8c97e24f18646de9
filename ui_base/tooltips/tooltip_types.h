// SPDX-License-Identifier: MIT
#pragma once

#include <QMetaType>

namespace Vela::UiBase {

/// The kinds of tooltip an application shows; see ATooltipObject::SetTooltipType().
///
/// The quick ones appear and go without delay and with a click. The rich ones wait for the mouse to rest,
/// stay while the mouse is over them, and are not closed by a click, so that their content can be worked
/// with.
enum ETooltipType : int {
  QuickTooltip = 0,     ///< A name above what it names.
  QuickSideTooltip = 1, ///< A name to the right, for vertical bars.
  QuickHintTooltip = 2, ///< A word about an entry, below it and in line with its start.
  RichTooltip = 3,      ///< Rich content below a control.
  RichSideTooltip = 4,  ///< Rich content to the left, for panels at the right of a window.
};

/// How long TooltipWrapper::Show() shows.
enum ETooltipShowUpType : int {
  ShowForDuration = 0, ///< For the wrapper's show duration.
  ShowUntilHidden = 1, ///< Until something hides it.
};

/// The times of tooltips, in milliseconds. TooltipManager keeps the ones of the process.
struct TooltipTimes {
  /// How long the mouse rests on a widget, or the keyboard focus is on it, before its tooltip is shown.
  int showUp = 500;
  /// How long a tooltip stays when the mouse has left the widget.
  int dismiss = 1000;
  /// After which time a tooltip is hidden in any case.
  int check = 20000;
  /// How long TooltipWrapper shows.
  int showDuration = 20000;
  /// After which time TooltipEx unfolds its advanced section.
  int unfold = 2000;
};

} // namespace Vela::UiBase

Q_DECLARE_METATYPE(Vela::UiBase::ETooltipType)
Q_DECLARE_METATYPE(Vela::UiBase::ETooltipShowUpType)
