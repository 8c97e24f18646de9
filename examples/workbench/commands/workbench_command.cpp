// SPDX-License-Identifier: MIT
#include "workbench_command.h"

#include <workbench/mesh_view.h>
#include <workbench/mesh_view_controller.h>

namespace Workbench {

WorkbenchCommand::WorkbenchCommand(MeshViewController* controller) : CommandBase(controller) {}

bool WorkbenchCommand::isAvailable() const { return true; }

bool WorkbenchCommand::locksMesh() const { return false; }

void WorkbenchCommand::cancel() {}

MeshViewController* WorkbenchCommand::meshController() const {
  return dynamic_cast<MeshViewController*>(getViewController());
}

MeshView* WorkbenchCommand::meshView() const { return qobject_cast<MeshView*>(getView()); }

MeshDocument* WorkbenchCommand::document() const {
  MeshView* const view = meshView();
  return view ? &view->document() : nullptr;
}

bool WorkbenchCommand::hasMesh() const {
  const MeshDocument* const shown = document();
  return shown && !shown->mesh().isEmpty();
}

bool WorkbenchCommand::isMeshLocked() const {
  const MeshViewController* const controller = meshController();
  return !controller || controller->isMeshLocked();
}

} // namespace Workbench
