// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/ui_base_export.h>

#include <QKeySequence>
#include <QList>
#include <QPointer>
#include <QString>

class QAction;
class QWidget;

namespace Vela::UiBase {

/// Somebody who would take a key.
struct KeyTaker {
  /// In the order in which they are asked.
  enum EKind : int {
    InFocus,  ///< The widget with the focus wants the key before any shortcut: one letter in a text field,
              ///< say.
    Flyout,   ///< The panel that is open.
    Menu,     ///< The mnemonic of a button or of an item of the menu bar.
    Command,  ///< A command or another action.
    Library,  ///< What the library does with it.
    Leftover, ///< The widget with the focus gets what nobody else has taken.
  };

  EKind kind = Command;
  QString name;             ///< For the user.
  QString why;              ///< Why it does not take the key just now; empty when it would.
  QPointer<QAction> action; ///< Of a command or action.
};

/// Who gets a key, and who else listens to it.
struct KeyAnswer {
  QList<KeyTaker> takers;
  /// The position of the one that gets it; -1 when none does.
  int receiver = -1;
  /// Several shortcuts mean the key, so that none of them gets it.
  bool isAmbiguous = false;
};

/// Who would take these keys in a window as it stands, with the focus where it is: found out without pressing
/// them. A text field, say, is asked whether it wants them.
UI_BASE_EXPORT KeyAnswer whoTakes(const QKeySequence& keys, QWidget& window);

} // namespace Vela::UiBase
