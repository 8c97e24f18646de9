// SPDX-License-Identifier: MIT
#include "quit_command.h"

#include <ui_base/views/base_view.h>
#include <workbench/command_menus.h>
#include <workbench/mesh_view_controller.h>

namespace Workbench {

using namespace Vela::UiBase;

QuitCommand::QuitCommand(MeshViewController* controller) : CommandBase(controller) {
  setText({staticMetaObject, QT_TR_NOOP("&Quit")});
  setShortcut(Qt::CTRL | Qt::Key_Q);
  setMenuRole(QAction::QuitRole);
  setBaseGroupName(ExitSection);
}

bool QuitCommand::onExecuteAsync(bool) {
  BaseView* const view = getView();
  return view && view->window()->close();
}

} // namespace Workbench
