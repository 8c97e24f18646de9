// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/commands/command_base.h>

namespace Workbench {

class MeshViewController;

/// Closes the window and thereby ends the program, if nobody objects.
class QuitCommand : public Vela::UiBase::CommandBase {
  Q_OBJECT
  COMMAND_ID(QuitCommand)

public:
  explicit QuitCommand(MeshViewController* controller);

  bool onExecuteAsync(bool checked) override;
};

} // namespace Workbench
