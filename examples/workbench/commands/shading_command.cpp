// SPDX-License-Identifier: MIT
#include "shading_command.h"

#include <ui_base/views/qt_ui_toolkit.h>
#include <workbench/mesh_view.h>

namespace Workbench {

using namespace Vela::UiBase;

ShadingCommand::ShadingCommand(MeshViewController* controller, EShading shading)
    : WorkbenchCommand(controller), m_shading(shading) {
  const auto icon = [](const char* name) {
    return QtUiToolkit::Instance().CreateIcon(QString::fromLatin1(name));
  };
  setCheckable(true);
  setIconVisibleInMenu(false); // the menu shows which one is on in its place
  switch (shading) {
  case SmoothShading:
    setText({staticMetaObject, QT_TR_NOOP("&Smooth")});
    setIcon(icon("smooth_shading"));
    setStatusTip({staticMetaObject, QT_TR_NOOP("Show a smooth surface")});
    setChecked(true);
    break;
  case FlatShading:
    setText({staticMetaObject, QT_TR_NOOP("&Flat")});
    setIcon(icon("flat_shading"));
    setStatusTip({staticMetaObject, QT_TR_NOOP("Show each face of the mesh")});
    break;
  case FlatShadingWithEdges:
    setText({staticMetaObject, QT_TR_NOOP("Flat with &Edges")});
    setIcon(icon("flat_shading_edges"));
    setStatusTip({staticMetaObject, QT_TR_NOOP("Show each face of the mesh and the edges between them")});
    break;
  }
}

QString ShadingCommand::idOf(EShading shading) {
  return QString::fromLatin1(staticMetaObject.className()) + QString::number(shading);
}

CommandState ShadingCommand::defaultCommandState() { return {State::On, State(m_shading == SmoothShading)}; }

bool ShadingCommand::onExecuteAsync(bool checked) {
  MeshView* const view = meshView();
  if (view && checked)
    view->setShading(m_shading);
  return view != nullptr;
}

} // namespace Workbench
