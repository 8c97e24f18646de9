// SPDX-License-Identifier: MIT
#pragma once

#include <workbench/commands/workbench_command.h>

namespace Workbench {

/// Takes back a step of the document.
class UndoCommand : public WorkbenchCommand {
  Q_OBJECT
  COMMAND_ID(UndoCommand)

public:
  explicit UndoCommand(MeshViewController* controller);

  QString obstacle() const override;
  bool onExecuteAsync(bool checked) override;

private:
  void showStep();
};

/// Does again what UndoCommand took back.
class RedoCommand : public WorkbenchCommand {
  Q_OBJECT
  COMMAND_ID(RedoCommand)

public:
  explicit RedoCommand(MeshViewController* controller);

  QString obstacle() const override;
  bool onExecuteAsync(bool checked) override;

private:
  void showStep();
};

} // namespace Workbench
