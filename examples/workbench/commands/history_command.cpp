// SPDX-License-Identifier: MIT
#include "history_command.h"

#include <ui_base/views/qt_ui_toolkit.h>
#include <workbench/command_menus.h>
#include <workbench/mesh_document.h>
#include <workbench/mesh_view_controller.h>

namespace Workbench {

using namespace Vela::UiBase;

UndoCommand::UndoCommand(MeshViewController* controller) : WorkbenchCommand(controller) {
  setText({staticMetaObject, QT_TR_NOOP("&Undo")});
  setIcon(QtUiToolkit::Instance().CreateIcon(QStringLiteral("undo")));
  setShortcut(QKeySequence::Undo);
  setStatusTip({staticMetaObject, QT_TR_NOOP("Take back the last step")});
  setBaseGroupName(EditSection);
  if (MeshDocument* const edited = document())
    connect(edited->undoStack(), &QUndoStack::undoTextChanged, this, &UndoCommand::showStep);
}

void UndoCommand::showStep() {
  const auto step = document() ? document()->undoText() : std::nullopt;
  setText(step ? Text(staticMetaObject, QT_TR_NOOP("&Undo %1")).arg(*step)
               : Text(staticMetaObject, QT_TR_NOOP("&Undo")));
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
  setText({staticMetaObject, QT_TR_NOOP("&Redo")});
  setIcon(QtUiToolkit::Instance().CreateIcon(QStringLiteral("redo")));
  setShortcut(QKeySequence::Redo);
  setStatusTip({staticMetaObject, QT_TR_NOOP("Do again what was taken back")});
  setBaseGroupName(EditSection);
  if (MeshDocument* const edited = document())
    connect(edited->undoStack(), &QUndoStack::redoTextChanged, this, &RedoCommand::showStep);
}

void RedoCommand::showStep() {
  const auto step = document() ? document()->redoText() : std::nullopt;
  setText(step ? Text(staticMetaObject, QT_TR_NOOP("&Redo %1")).arg(*step)
               : Text(staticMetaObject, QT_TR_NOOP("&Redo")));
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
