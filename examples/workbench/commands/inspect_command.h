// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/commands/command_base.h>

namespace Workbench {

class MeshViewController;

/// Opens the window that shows developers what the commands are at.
class InspectCommand : public Vela::UiBase::CommandBase {
  Q_OBJECT
  COMMAND_ID(InspectCommand)

public:
  explicit InspectCommand(MeshViewController* controller);

  bool onExecuteAsync(bool checked) override;
};

} // namespace Workbench
