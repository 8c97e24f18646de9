// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/commands/command_base.h>

namespace Workbench {

class MeshViewController;

/// Opens the command palette of the window.
class FindCommandCommand : public Vela::UiBase::CommandBase {
  Q_OBJECT
  COMMAND_ID(FindCommandCommand)

public:
  explicit FindCommandCommand(MeshViewController* controller);

  bool onExecuteAsync(bool checked) override;
};

} // namespace Workbench
