// SPDX-License-Identifier: MIT
#include "workbench_command.h"

#include <workbench/mesh_view_controller.h>

namespace Workbench {

WorkbenchCommand::WorkbenchCommand(MeshViewController* controller)
    : CommandBase(controller), MeshUser(static_cast<const CommandBase&>(*this)) {}

} // namespace Workbench
