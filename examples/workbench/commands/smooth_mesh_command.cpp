// SPDX-License-Identifier: MIT
#include "smooth_mesh_command.h"

#include <ui_base/views/qt_ui_toolkit.h>
#include <workbench/command_menus.h>
#include <workbench/mesh_ops/smooth.h>
#include <workbench/mesh_view_controller.h>

namespace Workbench {

using namespace Vela::UiBase;

SmoothMeshCommand::SmoothMeshCommand(MeshViewController* controller) : MeshOperationCommand(controller) {
  setText({staticMetaObject, QT_TR_NOOP("&Smooth Mesh")});
  setIcon(QtUiToolkit::Instance().CreateIcon(QStringLiteral("smooth_mesh")));
  setShortcut(Qt::CTRL | Qt::Key_M);
  setStatusTip(
      {staticMetaObject, QT_TR_NOOP("Smooth noise away, everywhere or where triangles are selected")});
  setBaseGroupName(MeshSection);
}

Mesh SmoothMeshCommand::work(const Mesh& mesh, const TriangleSelection& selection,
                             const RunProgress& progress) const {
  SmoothOptions options;
  if (!selection.isEmpty())
    options.selection = selection;
  return smoothed(mesh, options, progress);
}

QString SmoothMeshCommand::workingText() const { return tr("Smoothing"); }

QString SmoothMeshCommand::doneText(const Mesh&, const Mesh&) const { return tr("Smoothed the mesh"); }

} // namespace Workbench
