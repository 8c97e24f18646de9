// SPDX-License-Identifier: MIT
#include "measurement_command.h"

#include <workbench/command_menus.h>
#include <workbench/mesh_view.h>
#include <workbench/mesh_view_controller.h>

#include <QClipboard>
#include <QGuiApplication>

namespace Workbench {

using namespace Vela::UiBase;

MeasurementCommand::MeasurementCommand(MeshViewController* controller, EMeasurementAction action)
    : WorkbenchCommand(controller), m_action(action) {
  setBaseGroupName(MeasureSection);
  if (action == RemoveMeasurement) {
    setText({staticMetaObject, QT_TR_NOOP("Remove &Last Measurement")});
    setShortcut(Qt::Key_Backspace);
    setStatusTip({staticMetaObject, QT_TR_NOOP("Take the distance away that was measured last")});
  } else {
    setText({staticMetaObject, QT_TR_NOOP("C&opy Measurements")});
    setShortcut(Qt::CTRL | Qt::SHIFT | Qt::Key_C);
    setStatusTip({staticMetaObject, QT_TR_NOOP("Put the measured distances on the clipboard, a line each")});
  }
}

QString MeasurementCommand::idOf(EMeasurementAction action) {
  return QString::fromLatin1(staticMetaObject.className()) + QString::number(action);
}

QString MeasurementCommand::obstacle() const {
  const bool anyMeasured = meshView() && !meshView()->measurements().isEmpty();
  return anyMeasured ? QString() : tr("Nothing has been measured.");
}

bool MeasurementCommand::onExecuteAsync(bool) {
  MeshView* const view = meshView();
  if (!view || !isAvailable())
    return false;
  if (m_action == RemoveMeasurement)
    view->measurements().removeNewest();
  else
    QGuiApplication::clipboard()->setText(view->measurements().list());
  return true;
}

} // namespace Workbench
