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
    setText({staticMetaObject, QT_TR_NOOP("&Pick")});
    setIcon(icon("pick"));
    setShortcut(Qt::CTRL | Qt::Key_1);
    setStatusTip(
        {staticMetaObject, QT_TR_NOOP("Select triangles by clicks, connected parts by double clicks")});
    setChecked(true);
    break;
  case MeasureMode:
    setText({staticMetaObject, QT_TR_NOOP("&Measure")});
    setIcon(icon("measure"));
    setShortcut(Qt::CTRL | Qt::Key_2);
    setStatusTip(
        {staticMetaObject,
         QT_TR_NOOP("Measure the distance of two points of the surface, by a drag or by two clicks")});
    break;
  case RectangleMode:
    setText({staticMetaObject, QT_TR_NOOP("&Rectangle Selection")});
    setIcon(icon("rectangle_selection"));
    setShortcut(Qt::CTRL | Qt::Key_3);
    setStatusTip({staticMetaObject, QT_TR_NOOP("Select the triangles that are seen within a rectangle")});
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
