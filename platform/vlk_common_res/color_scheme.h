// SPDX-License-Identifier: MIT
#pragma once

#include <vlk_common_res/styles.h>

#include <QColor>
#include <QString>

namespace Vela::Resource {

/// All colours of one palette. One row of values per palette; everything else is derived from it.
struct ColorScheme {
  QColor window;       ///< Back of windows and dialogs.
  QColor base;         ///< Back of entry fields, lists and menus.
  QColor button;       ///< Back of push buttons.
  QColor text;         ///< Text on window, base and button.
  QColor textTitle;    ///< Titles and values.
  QColor textLabel;    ///< Names of values, secondary text.
  QColor textDisabled; ///< Text of what cannot be used now.
  QColor border;       ///< Outlines of fields, buttons and popups.
  QColor separator;    ///< Lines between groups.
  QColor accent;       ///< Selections.
  QColor accentText;   ///< Text on the accent.
  QColor focus;        ///< Ring around what has the keyboard; stands out on all backs.
  QColor link;         ///< Links in text, icons under the mouse.
  QColor hover;        ///< Back of a button or entry under the mouse.
  QColor pressed;      ///< Back of a button that is held down.
  QColor checked;      ///< Back of a checked button.
  QColor textError;    ///< Error messages on window and base.
  QColor danger;       ///< Back of the close button under the mouse.
  QColor dangerText;   ///< Text and marks on danger.
  QColor toolTipBack;
  QColor toolTipText;
  QColor toolPaletteBack;
  QColor actionPanelGroupBack;
  QColor actionPanelBorder;
  QColor toolButtonArrow;
  QColor icon;
  QColor iconDisabled;
  NotificationColors info;
  NotificationColors warning;
  NotificationColors error;
};

/// The colours of a palette; valid for the life of the program.
const ColorScheme& colorScheme(EPalette palette);

/// The text of the style sheet file \a path with every @name replaced by the colour of that name.
QString expandStyleSheet(const QString& path, const ColorScheme& scheme);

} // namespace Vela::Resource
