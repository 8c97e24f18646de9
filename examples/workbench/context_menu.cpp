// SPDX-License-Identifier: MIT
#include "context_menu.h"

#include <ui_base/commands/command_group.h>
#include <workbench/command_menus.h>
#include <workbench/commands/clear_measurements_command.h>
#include <workbench/commands/mode_command.h>
#include <workbench/commands/reset_view_command.h>
#include <workbench/commands/selection_command.h>
#include <workbench/commands/set_pivot_command.h>
#include <workbench/commands/shading_command.h>
#include <workbench/mesh_view.h>
#include <workbench/mesh_view_controller.h>

#include <QMenu>

namespace Workbench {

using namespace Vela::UiBase;

QMenu* makeContextMenu(const MeshViewController& controller) {
  MeshView* const view = controller.meshView();
  if (!view)
    return nullptr;
  auto* const menu = new QMenu(view);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  const auto add = [&](const QStringList& ids) {
    for (const QString& id : ids) {
      if (CommandBase* const command = controller.findCommand(id))
        menu->addAction(command);
    }
  };
  add({ModeCommand::idOf(PickMode), ModeCommand::idOf(MeasureMode), ModeCommand::idOf(RectangleMode)});
  menu->addSeparator();
  if (controller.selectionCommands().isInUse() && controller.mode() != MeasureMode) {
    add({SelectionCommand::idOf(SelectConnected), SelectionCommand::idOf(GrowSelection),
         SelectionCommand::idOf(ClearSelection), SelectionCommand::idOf(DeleteSelection)});
    menu->addSeparator();
  }
  add({ResetViewCommand::className(), SetPivotCommand::className(), ClearMeasurementsCommand::className()});
  const CommandBase* const shading = controller.findCommand(ShadingCommand::idOf(SmoothShading));
  if (shading && shading->commandGroup())
    addGroupMenu(*menu, nullptr, *shading->commandGroup());
  return menu;
}

} // namespace Workbench
