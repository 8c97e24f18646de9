// SPDX-License-Identifier: MIT
#include "decimate_mesh_command.h"

#include <ui_base/views/qt_ui_toolkit.h>
#include <workbench/command_menus.h>
#include <workbench/commands/command_help.h>
#include <workbench/mesh_ops/decimate.h>
#include <workbench/mesh_view_controller.h>

#include <QLocale>

namespace Workbench {

using namespace Vela::UiBase;

DecimateMeshCommand::DecimateMeshCommand(MeshViewController* controller) : MeshOperationCommand(controller) {
  setText({staticMetaObject, QT_TR_NOOP("&Halve Triangles")});
  setIcon(QtUiToolkit::Instance().CreateIcon(QStringLiteral("decimate_paid")));
  setShortcut(Qt::CTRL | Qt::SHIFT | Qt::Key_M);
  setStatusTip(
      {staticMetaObject,
       QT_TR_NOOP(
           "Paid feature: reduce the mesh to half of its triangles where that changes the surface least")});
  setBaseGroupName(MeshSection);
  setCommandHelp(
      *this,
      {{staticMetaObject,
        QT_TR_NOOP("Flat parts lose triangles first; edges, corners and open borders keep their shape. "
                   "A feature for which a licence is needed.")},
       QStringLiteral("decimate")});
  setIsPaidFeature(true);
}

Mesh DecimateMeshCommand::work(const Mesh& mesh, const TriangleSelection&,
                               const RunProgress& progress) const {
  return decimated(mesh, mesh.triangles().size() / 2, progress);
}

QString DecimateMeshCommand::workingText() const { return tr("Reducing"); }

QString DecimateMeshCommand::doneText(const Mesh& before, const Mesh& after) const {
  const auto triangles = [](const Mesh& mesh) {
    return QLocale().toString(qulonglong(mesh.triangles().size()));
  };
  return tr("Reduced the mesh from %1 to %2 triangles").arg(triangles(before), triangles(after));
}

} // namespace Workbench
