// SPDX-License-Identifier: MIT
#include "mode_command.h"

#include <ui_base/views/qt_ui_toolkit.h>
#include <workbench/mesh_view_controller.h>

namespace Workbench {

using namespace Vela::UiBase;

ModeCommand::ModeCommand(MeshViewController* controller, EToolMode mode)
    : WorkbenchCommand(controller), m_mode(mode) {
  const auto icon = [](const char* name) {
    return QtUiToolkit::Instance().CreateIcon(QString::fromLatin1(name));
  };
  setCheckable(true);
  switch (mode) {
  case PickMode:
    setText(tr("&Pick"));
    setIcon(icon("pick"));
    setShortcut(Qt::CTRL | Qt::Key_1);
    setStatusTip(tr("Select triangles by clicks, connected parts by double clicks"));
    setChecked(true);
    break;
  case MeasureMode:
    setText(tr("&Measure"));
    setIcon(icon("measure"));
    setShortcut(Qt::CTRL | Qt::Key_2);
    setStatusTip(tr("Measure the distance of two points of the surface, by a drag or by two clicks"));
    break;
  case RectangleMode:
    setText(tr("&Rectangle Selection"));
    setIcon(icon("rectangle_selection"));
    setShortcut(Qt::CTRL | Qt::Key_3);
    setStatusTip(tr("Select the triangles that are seen within a rectangle"));
    break;
  }
}

QString ModeCommand::idOf(EToolMode mode) {
  return QString::fromLatin1(staticMetaObject.className()) + QString::number(mode);
}

CommandState ModeCommand::defaultCommandState() { return {State::On, State(m_mode == PickMode)}; }

bool ModeCommand::onExecuteAsync(bool checked) {
  MeshViewController* const controller = meshController();
  if (!controller)
    return false;
  if (checked)
    controller->enterMode(m_mode);
  else
    controller->leaveMode(m_mode);
  return true;
}

} // namespace Workbench
