// SPDX-License-Identifier: MIT
#pragma once

#include "shortcut_editor.h"
#include "shortcut_model.h"
#include "shortcut_use.h"

#include <QKeySequenceEdit>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeView>

class QBoxLayout;

namespace Vela::UiBase {

class ShortcutEditorPrivate {
public:
  ShortcutEditorPrivate(ShortcutEditor& editor, ShortcutScheme& shortcuts);

  std::shared_ptr<CommandBase> current() const;
  /// The command that was chosen in the list, with the keys it has.
  void showCurrent();
  /// What the recorded keys would meet, and what can be done.
  void showRecorded();
  /// Gives the recorded keys to the command, and takes them away from those that have them.
  void use();
  void clear();
  void reset();
  void resetAll();
  void askImport();
  void askExport();
  void askSheet();
  void applyStyles();
  void say(const QString& text) { message->setText(text); }

  ShortcutEditor& q;
  ShortcutScheme& scheme;
  ShortcutModel model;
  // Children of the editor.
  QLineEdit* search;
  QTreeView* list;
  QLabel* name;
  QKeySequenceEdit* keys;
  QPushButton* useButton;
  QPushButton* clearButton;
  QPushButton* resetButton;
  QPushButton* resetAllButton;
  QLabel* message;

private:
  void layOut();
  void connectAll();
  QPushButton* addButton(QBoxLayout& row, const QString& text, void (ShortcutEditorPrivate::*act)());
  QList<QKeySequence> recorded() const;
  void takeAway(const ShortcutUse& use, const QKeySequence& wanted);
};

} // namespace Vela::UiBase
