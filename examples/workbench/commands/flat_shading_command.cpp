// SPDX-License-Identifier: MIT
#include "flat_shading_command.h"

#include <ui_base/views/qt_ui_toolkit.h>
#include <workbench/command_menus.h>
#include <workbench/mesh_view.h>
#include <workbench/mesh_view_controller.h>

namespace Workbench {

using namespace Vela::UiBase;

FlatShadingCommand::FlatShadingCommand(MeshViewController* controller) : CommandBase(controller) {
  setText(tr("&Flat Shading"));
  setIcon(QtUiToolkit::Instance().CreateIcon(QStringLiteral("flat_shading")));
  setShortcut(Qt::CTRL | Qt::SHIFT | Qt::Key_F);
  setStatusTip(tr("Show each face of the mesh"));
  setBaseGroupName(LookSection);
  setIconVisibleInMenu(false); // the menu shows a check box in its place
  setCheckable(true);
}

bool FlatShadingCommand::onExecuteAsync(bool checked) {
  auto* const controller = dynamic_cast<MeshViewController*>(getViewController());
  if (!controller || !controller->meshView())
    return false;
  controller->meshView()->setFlatShaded(checked);
  // Chosen while a mesh is being opened, it stays when the states from before come back.
  controller->settleCommandState(commandId(), commandState());
  return true;
}

} // namespace Workbench
