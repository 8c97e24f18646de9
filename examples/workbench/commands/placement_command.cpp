// SPDX-License-Identifier: MIT
#include "placement_command.h"

#include <workbench/command_menus.h>
#include <workbench/console.h>
#include <workbench/mesh_view.h>
#include <workbench/mesh_view_controller.h>
#include <workbench/panels/placement_overlay.h>

namespace Workbench {

using namespace Vela::UiBase;

PlacementOverlayCommand::PlacementOverlayCommand(MeshViewController* controller)
    : WorkbenchCommand(controller) {
  setText({staticMetaObject, QT_TR_NOOP("Placement &Overlay")});
  setShortcut(Qt::CTRL | Qt::SHIFT | Qt::Key_P);
  setStatusTip(
      {staticMetaObject, QT_TR_NOOP("Draw every place that was tried for the last tooltip or flyout")});
  setBaseGroupName(LookSection);
  setCheckable(true);
  if (MeshView* const view = meshView())
    m_overlay = new PlacementOverlay(*view->window());
}

PlacementOverlayCommand::~PlacementOverlayCommand() {
  beginDestruction();
  delete m_overlay;
}

PlacementOverlay* PlacementOverlayCommand::overlay() const { return m_overlay; }

// A way of looking at things, which contexts do not change.
void PlacementOverlayCommand::setCommandState(const CommandState& state) {
  CommandBase::setCommandState({state.enabled, State::Keep});
}

bool PlacementOverlayCommand::onExecuteAsync(bool checked) {
  if (!m_overlay)
    return false;
  m_overlay->setVisible(checked);
  m_overlay->raise();
  return true;
}

PrintPlacementCommand::PrintPlacementCommand(MeshViewController* controller) : WorkbenchCommand(controller) {
  setText({staticMetaObject, QT_TR_NOOP("Pr&int Placement")});
  setShortcut(Qt::CTRL | Qt::ALT | Qt::Key_P);
  setStatusTip({staticMetaObject,
                QT_TR_NOOP("Print to the terminal why the last tooltip or flyout stands where it stands")});
  setBaseGroupName(LookSection);
}

bool PrintPlacementCommand::onExecuteAsync(bool) {
  const MeshViewController* const controller = meshController();
  const auto* const command = controller ? dynamic_cast<const PlacementOverlayCommand*>(
                                               controller->findCommand(PlacementOverlayCommand::className()))
                                         : nullptr;
  if (!command || !command->overlay())
    return false;
  print(command->overlay()->search().toString() + QLatin1Char('\n'));
  return true;
}

} // namespace Workbench
