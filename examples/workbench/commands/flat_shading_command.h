// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/commands/command_base.h>

namespace Workbench {

class MeshViewController;

/// Shows the faces of the mesh one by one (checked) or as a smooth surface.
class FlatShadingCommand : public Vela::UiBase::CommandBase {
  Q_OBJECT
  COMMAND_ID(FlatShadingCommand)

public:
  explicit FlatShadingCommand(MeshViewController* controller);

  bool onExecuteAsync(bool checked) override;
};

} // namespace Workbench
