// SPDX-License-Identifier: MIT
#include "clear_measurements_command.h"

#include <ui_base/views/qt_ui_toolkit.h>
#include <workbench/command_menus.h>
#include <workbench/mesh_view.h>
#include <workbench/mesh_view_controller.h>

namespace Workbench {

using namespace Vela::UiBase;

ClearMeasurementsCommand::ClearMeasurementsCommand(MeshViewController* controller)
    : WorkbenchCommand(controller) {
  setText({staticMetaObject, QT_TR_NOOP("&Clear Measurements")});
  setIcon(QtUiToolkit::Instance().CreateIcon(QStringLiteral("clear_measurements")));
  setShortcut(Qt::CTRL | Qt::Key_Backspace);
  setStatusTip({staticMetaObject, QT_TR_NOOP("Take the measured distances away")});
  setBaseGroupName(MeasureSection);
}

QString ClearMeasurementsCommand::obstacle() const {
  const bool anyMeasured = meshView() && !meshView()->measurements().isEmpty();
  return anyMeasured ? QString() : tr("Nothing has been measured.");
}

bool ClearMeasurementsCommand::onExecuteAsync(bool) {
  MeshView* const view = meshView();
  if (view)
    view->measurements().clear();
  return view != nullptr;
}

} // namespace Workbench
