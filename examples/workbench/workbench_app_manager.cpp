// SPDX-License-Identifier: MIT
#include "workbench_app_manager.h"

#include <workbench/commands/about_command.h>
#include <workbench/commands/dark_palette_command.h>
#include <workbench/commands/flat_shading_command.h>
#include <workbench/commands/open_mesh_command.h>
#include <workbench/commands/quit_command.h>
#include <workbench/commands/reset_view_command.h>
#include <workbench/commands/save_screenshot_command.h>
#include <workbench/mesh_view_controller.h>

namespace Workbench {

QList<Vela::UiBase::CommandBase*>
WorkbenchAppManager::commandsFor(Vela::UiBase::CmdsViewController* controller) {
  auto* const meshController = dynamic_cast<MeshViewController*>(controller);
  if (!meshController)
    return {};
  return {new OpenMeshCommand(meshController),    new SaveScreenshotCommand(meshController),
          new QuitCommand(meshController),        new ResetViewCommand(meshController),
          new FlatShadingCommand(meshController), new DarkPaletteCommand(meshController),
          new AboutCommand(meshController)};
}

} // namespace Workbench
