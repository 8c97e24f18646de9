// SPDX-License-Identifier: MIT
// What keys do in the view of the mesh.
#include "mesh_view_controller.h"

#include <ui_base/tools/operation_log.h>
#include <workbench/commands/mode_command.h>
#include <workbench/mesh_view.h>
#include <workbench/session/camera_values.h>
#include <workbench/tools/camera_keys.h>

#include <QKeyEvent>

namespace Workbench {

using namespace Vela::UiBase;

namespace {

constexpr QLatin1String DeselectAction("deselect");

} // namespace

bool MeshViewController::keyPress(QKeyEvent* event) {
  const bool isEscape = event->key() == Qt::Key_Escape;
  if (isEscape && getOperatingTool()) {
    endRunningOperation();
    return true;
  }
  if (CmdsViewController::keyPress(event))
    return true;
  if (isEscape)
    return escape();
  if (event->key() == Qt::Key_F10 && event->modifiers() == Qt::ShiftModifier && meshView()) {
    meshView()->requestMenu(meshView()->mapToGlobal(meshView()->rect().center()));
    return true;
  }
  return moveCamera(*event);
}

// One thing at a time, what is most likely meant first.
bool MeshViewController::escape() {
  if (cancelWork())
    return true;
  CommandBase* const pick = findCommand(ModeCommand::idOf(PickMode));
  if (pick && m_mode != PickMode) {
    pick->setChecked(true);
    return true;
  }
  MeshView* const view = meshView();
  if (!view || view->document().selection().isEmpty())
    return false;
  view->document().setSelection(TriangleSelection(view->mesh().triangles().size()));
  OperationLog::Instance().tell({QStringLiteral("MeshView"), DeselectAction, {}, {}, {}, {}});
  return true;
}

bool MeshViewController::performOnView(const ToolOperation& operation) {
  MeshView* const view = meshView();
  if (!view || view->mesh().isEmpty() || operation.command != QLatin1String("MeshView"))
    return false;
  if (operation.action != DeselectAction)
    return performLook(*view, operation);
  view->document().setSelection(TriangleSelection(view->mesh().triangles().size()));
  return true;
}

// Not during a drag, which goes by the camera at its beginning.
bool MeshViewController::moveCamera(const QKeyEvent& event) {
  MeshView* const view = meshView();
  if (!view || view->mesh().isEmpty() || getOperatingTool())
    return false;
  const auto moved = movedByKey(view->camera(), event, view->size());
  if (!moved)
    return false;
  view->setCamera(*moved);
  tellLook(*view);
  return true;
}

} // namespace Workbench
