// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/commands/command_base.h>

namespace Workbench {

class MeshViewController;

/// Shows what the program is.
class AboutCommand : public Vela::UiBase::CommandBase {
  Q_OBJECT
  COMMAND_ID(AboutCommand)

public:
  explicit AboutCommand(MeshViewController* controller);

  bool onExecuteAsync(bool checked) override;
};

} // namespace Workbench
