// SPDX-License-Identifier: MIT
#pragma once

#include <workbench/commands/workbench_command.h>

namespace Workbench {

/// Takes the measured distances away.
class ClearMeasurementsCommand : public WorkbenchCommand {
  Q_OBJECT
  COMMAND_ID(ClearMeasurementsCommand)

public:
  explicit ClearMeasurementsCommand(MeshViewController* controller);

  QString obstacle() const override;
  bool onExecuteAsync(bool checked) override;
};

} // namespace Workbench
