// SPDX-License-Identifier: MIT
#include "history_command.h"

#include <ui_base/views/qt_ui_toolkit.h>
#include <workbench/command_menus.h>
#include <workbench/mesh_document.h>
#include <workbench/mesh_view_controller.h>

namespace Workbench {

using namespace Vela::UiBase;

UndoCommand::UndoCommand(MeshViewController* controller) : WorkbenchCommand(controller) {
  setText(tr("&Undo"));
  setIcon(QtUiToolkit::Instance().CreateIcon(QStringLiteral("undo")));
  setShortcut(QKeySequence::Undo);
  setStatusTip(tr("Take back the last step"));
  setBaseGroupName(EditSection);
  if (MeshDocument* const edited = document())
    connect(edited->undoStack(), &QUndoStack::undoTextChanged, this, [this](const QString& step) {
      setText(step.isEmpty() ? tr("&Undo") : tr("&Undo %1").arg(step));
    });
}

QString UndoCommand::obstacle() const {
  const bool hasStep = document() && document()->undoStack()->canUndo();
  return hasStep ? needUnlocked() : tr("There is nothing to undo.");
}

bool UndoCommand::onExecuteAsync(bool) {
  if (!isAvailable())
    return false;
  document()->undoStack()->undo();
  return true;
}

RedoCommand::RedoCommand(MeshViewController* controller) : WorkbenchCommand(controller) {
  setText(tr("&Redo"));
  setIcon(QtUiToolkit::Instance().CreateIcon(QStringLiteral("redo")));
  setShortcut(QKeySequence::Redo);
  setStatusTip(tr("Do again what was taken back"));
  setBaseGroupName(EditSection);
  if (MeshDocument* const edited = document())
    connect(edited->undoStack(), &QUndoStack::redoTextChanged, this, [this](const QString& step) {
      setText(step.isEmpty() ? tr("&Redo") : tr("&Redo %1").arg(step));
    });
}

QString RedoCommand::obstacle() const {
  const bool hasStep = document() && document()->undoStack()->canRedo();
  return hasStep ? needUnlocked() : tr("There is nothing to do again.");
}

bool RedoCommand::onExecuteAsync(bool) {
  if (!isAvailable())
    return false;
  document()->undoStack()->redo();
  return true;
}

} // namespace Workbench
