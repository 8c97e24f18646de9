// SPDX-License-Identifier: MIT
#include "about_command.h"

#include <ui_base/views/base_view.h>
#include <ui_base/views/qt_ui_toolkit.h>
#include <workbench/command_menus.h>
#include <workbench/mesh_view_controller.h>
#include <workbench/panels/about_dialog.h>

namespace Workbench {

using namespace Vela::UiBase;

AboutCommand::AboutCommand(MeshViewController* controller) : CommandBase(controller) {
  setText({staticMetaObject, QT_TR_NOOP("&About Workbench")});
  setIcon(QtUiToolkit::Instance().CreateIcon(QStringLiteral("info")));
  setStatusTip({staticMetaObject, QT_TR_NOOP("What the program is, its version and its licence")});
  setMenuRole(QAction::AboutRole);
  setBaseGroupName(HelpSection);
}

bool AboutCommand::onExecuteAsync(bool) {
  const BaseView* const view = getView();
  auto* const dialog = new AboutDialog(view ? view->window() : nullptr);
  dialog->setAttribute(Qt::WA_DeleteOnClose);
  dialog->open();
  return true;
}

} // namespace Workbench
