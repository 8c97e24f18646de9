// SPDX-License-Identifier: MIT
#pragma once

#include <workbench/commands/workbench_command.h>

namespace Workbench {

/// Shows all of the mesh from the first angles.
class ResetViewCommand : public WorkbenchCommand {
  Q_OBJECT
  COMMAND_ID(ResetViewCommand)

public:
  explicit ResetViewCommand(MeshViewController* controller);

  QString obstacle() const override;
  bool onExecuteAsync(bool checked) override;
};

} // namespace Workbench
