// SPDX-License-Identifier: MIT
#include "inspect_command.h"

#include <ui_base/assistants/command_inspector.h>
#include <ui_base/views/base_view.h>
#include <workbench/command_menus.h>
#include <workbench/mesh_view_controller.h>

namespace Workbench {

using namespace Vela::UiBase;

InspectCommand::InspectCommand(MeshViewController* controller) : CommandBase(controller) {
  setText({staticMetaObject, QT_TR_NOOP("&Inspect Commands…")});
  setStatusTip({staticMetaObject,
                QT_TR_NOOP("Shows which commands cannot be used, why and since when, and what was run")});
  setBaseGroupName(HelpSection);
}

bool InspectCommand::onExecuteAsync(bool) {
  const BaseView* const view = getView();
  if (!view)
    return false;
  auto* inspector = view->window()->findChild<CommandInspector*>();
  if (!inspector) {
    inspector = new CommandInspector(view->window());
    inspector->addManager(getViewController());
  }
  inspector->show();
  inspector->activateWindow();
  return true;
}

} // namespace Workbench
