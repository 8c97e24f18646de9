// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/ui_base_export.h>

#include <QKeySequence>
#include <QList>
#include <QPointer>
#include <QString>
#include <QWidget>

class QAction;

namespace Vela::UiBase {

class CommandBase;

/// Somebody who listens to keys, and where: a command, an action of the application's own, the mnemonic of a
/// button, the library itself.
struct ShortcutUse {
  QKeySequence keys;
  QString commandId; ///< Empty when it is no command.
  QString name;      ///< For the user.
  Qt::ShortcutContext context = Qt::WindowShortcut;
  /// The widgets that it goes by, those that its menus stand in included; with none it acts everywhere.
  QList<QPointer<QWidget>> places;
};

/// Each of the shortcuts of an action. A command that stands in no widget goes by its view.
UI_BASE_EXPORT QList<ShortcutUse> usesOf(const QAction& action);
/// A command as if it had these shortcuts.
UI_BASE_EXPORT QList<ShortcutUse> usesOf(const CommandBase& command, const QList<QKeySequence>& shortcuts);
/// What listens in a window besides commands: other actions, shortcut objects, mnemonics of buttons.
UI_BASE_EXPORT QList<ShortcutUse> usesBesideCommands(const QWidget& window);
/// The keys that the library uses for itself wherever it has something to do with them: Escape, F6, …
UI_BASE_EXPORT QList<ShortcutUse> libraryKeys();

} // namespace Vela::UiBase
