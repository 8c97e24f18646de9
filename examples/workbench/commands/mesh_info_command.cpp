// SPDX-License-Identifier: MIT
#include "mesh_info_command.h"

#include <ui_base/views/qt_ui_toolkit.h>
#include <workbench/command_menus.h>
#include <workbench/mesh_view.h>
#include <workbench/mesh_view_controller.h>
#include <workbench/panels/mesh_info_dialog.h>

namespace Workbench {

using namespace Vela::UiBase;

MeshInfoCommand::MeshInfoCommand(MeshViewController* controller) : WorkbenchCommand(controller) {
  setText({staticMetaObject, QT_TR_NOOP("Mesh &Information…")});
  setIcon(QtUiToolkit::Instance().CreateIcon(QStringLiteral("info")));
  setShortcut(Qt::CTRL | Qt::SHIFT | Qt::Key_I);
  setStatusTip({staticMetaObject,
                QT_TR_NOOP("Counts, size, surface area and volume of the mesh, and how long its edges are")});
  setBaseGroupName(MeshSection);
}

QString MeshInfoCommand::obstacle() const { return needMesh(); }

bool MeshInfoCommand::onExecuteAsync(bool) {
  MeshView* const view = meshView();
  if (!view || !hasMesh())
    return false;
  if (!m_dialog) {
    m_dialog = new MeshInfoDialog(*view, view->window());
    m_dialog->setAttribute(Qt::WA_DeleteOnClose);
  }
  m_dialog->show();
  m_dialog->raise();
  m_dialog->activateWindow();
  return true;
}

} // namespace Workbench
