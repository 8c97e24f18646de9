// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/commands/command_base.h>
#include <workbench/commands/mesh_user.h>

namespace Workbench {

/// The base of the workbench's commands: knows its controller, and when it can be used.
class WorkbenchCommand : public Vela::UiBase::CommandBase, public MeshUser {
  Q_OBJECT

public:
  explicit WorkbenchCommand(MeshViewController* controller);
};

} // namespace Workbench
