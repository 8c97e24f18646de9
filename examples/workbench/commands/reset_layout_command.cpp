// SPDX-License-Identifier: MIT
#include "reset_layout_command.h"

#include <workbench/command_menus.h>
#include <workbench/mesh_view_controller.h>

namespace Workbench {

using namespace Vela::UiBase;

ResetLayoutCommand::ResetLayoutCommand(MeshViewController* controller) : WorkbenchCommand(controller) {
  setText({staticMetaObject, QT_TR_NOOP("Reset &Window")});
  setStatusTip(
      {staticMetaObject, QT_TR_NOOP("Put the window, its pages and the unit back as they were at first")});
  setBaseGroupName(LookSection);
}

bool ResetLayoutCommand::needsMeshPage() const { return false; }

bool ResetLayoutCommand::onExecuteAsync(bool) {
  MeshViewController* const controller = meshController();
  if (controller)
    Q_EMIT controller->events().layoutResetAsked();
  return controller != nullptr;
}

} // namespace Workbench
