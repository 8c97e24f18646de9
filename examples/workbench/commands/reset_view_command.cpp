// SPDX-License-Identifier: MIT
#include "reset_view_command.h"

#include <ui_base/views/qt_ui_toolkit.h>
#include <workbench/command_menus.h>
#include <workbench/mesh_view.h>
#include <workbench/mesh_view_controller.h>

namespace Workbench {

using namespace Vela::UiBase;

ResetViewCommand::ResetViewCommand(MeshViewController* controller) : WorkbenchCommand(controller) {
  setText({staticMetaObject, QT_TR_NOOP("&Reset View")});
  setIcon(QtUiToolkit::Instance().CreateIcon(QStringLiteral("reset_view")));
  setShortcut(Qt::CTRL | Qt::Key_0);
  setStatusTip({staticMetaObject, QT_TR_NOOP("Show all of the mesh from the front")});
  setBaseGroupName(ViewSection);
}

QString ResetViewCommand::obstacle() const { return needMesh(); }

bool ResetViewCommand::onExecuteAsync(bool) {
  MeshView* const view = meshView();
  if (!view)
    return false;
  view->resetCamera();
  return true;
}

} // namespace Workbench
