// SPDX-License-Identifier: MIT
#pragma once

#include <workbench/commands/workbench_command.h>

namespace Workbench {

/// Puts the window and what is kept of it back as at the first start: see WindowLayout.
class ResetLayoutCommand : public WorkbenchCommand {
  Q_OBJECT
  COMMAND_ID(ResetLayoutCommand)

public:
  explicit ResetLayoutCommand(MeshViewController* controller);

  bool needsMeshPage() const override;
  bool onExecuteAsync(bool checked) override;
};

} // namespace Workbench
