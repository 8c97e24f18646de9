// SPDX-License-Identifier: MIT
#include "show_page_command.h"

#include <workbench/command_menus.h>
#include <workbench/mesh_view_controller.h>

namespace Workbench {

using namespace Vela::UiBase;

ShowPageCommand::ShowPageCommand(MeshViewController* controller, EPage page)
    : CommandBase(controller), m_page(page) {
  setBaseGroupName(PageSection);
  setCheckable(true);
  if (page == MeshPage) {
    setText({staticMetaObject, QT_TR_NOOP("&Mesh")});
    setShortcut(Qt::ALT | Qt::Key_1);
    setStatusTip({staticMetaObject, QT_TR_NOOP("Go to the page of the mesh")});
    const QSignalBlocker blocker(this);
    setChecked(true);
  } else {
    setText({staticMetaObject, QT_TR_NOOP("&Photographs")});
    setShortcut(Qt::ALT | Qt::Key_2);
    setStatusTip({staticMetaObject, QT_TR_NOOP("Go to the page of the photographs")});
  }
}

QString ShowPageCommand::idOf(EPage page) {
  return QString::fromLatin1(staticMetaObject.className()) + QString::number(page);
}

void ShowPageCommand::setCommandState(const CommandState& state) {
  CommandBase::setCommandState({state.enabled, State::Keep});
}

bool ShowPageCommand::onExecuteAsync(bool checked) {
  auto* const controller = dynamic_cast<MeshViewController*>(getViewController());
  if (controller && checked)
    Q_EMIT controller->events().pageAsked(m_page);
  return controller != nullptr;
}

} // namespace Workbench
