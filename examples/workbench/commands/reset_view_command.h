// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/commands/command_base.h>

namespace Workbench {

class MeshViewController;

/// Shows all of the mesh from the first angles.
class ResetViewCommand : public Vela::UiBase::CommandBase {
  Q_OBJECT
  COMMAND_ID(ResetViewCommand)

public:
  explicit ResetViewCommand(MeshViewController* controller);

  bool onExecuteAsync(bool checked) override;
};

} // namespace Workbench
