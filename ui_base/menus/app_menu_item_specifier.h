// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/ui_base_export.h>

#include <QAction>
#include <QIcon>
#include <QKeySequence>
#include <QList>
#include <QPointer>
#include <QString>

namespace Vela::UiBase {

/// What an entry of a menu is.
enum EAppMenuItemKind : int {
  AppMenuEntry = 0,
  AppMenuSeparator = 1,
  AppMenuSubMenu = 2,
};

/// Describes one entry of a drop-down menu, or an item of the menu bar.
///
/// @code
/// AppMenuItemSpecifier open{.name = QStringLiteral("open"), .text = tr("&Open…")};
/// open.shortcut = QKeySequence::Open;
/// open.slot = SLOT(openFile());
/// builder->AddDropDownMenu(QStringLiteral("file"),
///                          {open, AppMenuItemSpecifier::Separator(),
///                           AppMenuItemSpecifier::OfAction(manager->findCommand(id))});
/// @endcode
struct UI_BASE_EXPORT AppMenuItemSpecifier {
  /// Identifies the entry; the object name of its action, or the name of the sub-menu.
  QString name = {};
  /// As shown, with a mnemonic after an ampersand.
  QString text = {};
  QString tooltip = {};
  QIcon icon = {};
  QKeySequence shortcut = {};
  /// The slot of the builder's receiver to call, as SLOT() makes it; null for none. Not copied: it must live
  /// as long as the specifier, as what SLOT() makes does. A slot with a bool gets the checked state.
  const char* slot = nullptr;
  EAppMenuItemKind kind = AppMenuEntry;
  /// Whether the entry has a check mark, and whether it is set at first.
  bool checkable = false;
  bool checked = false;
  bool enabled = true;
  /// The entries of a sub-menu.
  QList<AppMenuItemSpecifier> items = {};
  /// An action, such as a command, to be the entry; not owned. The entry shows it and follows its state, and
  /// all members above but the name are without meaning. The entry goes when the action is destroyed.
  QPointer<QAction> action = {};

  /// A line between two entries.
  static AppMenuItemSpecifier Separator();
  /// An entry that opens a menu of its own, filled by its name.
  static AppMenuItemSpecifier SubMenu(const QString& name, const QString& text,
                                      const QList<AppMenuItemSpecifier>& items);
  /// An entry for an action, which the caller keeps.
  static AppMenuItemSpecifier OfAction(QAction* action);
};

} // namespace Vela::UiBase
