// SPDX-License-Identifier: MIT
#include "find_command_command.h"

#include <ui_base/assistants/command_palette.h>
#include <ui_base/views/base_view.h>
#include <ui_base/views/qt_ui_toolkit.h>
#include <workbench/command_menus.h>
#include <workbench/mesh_view_controller.h>

namespace Workbench {

using namespace Vela::UiBase;

FindCommandCommand::FindCommandCommand(MeshViewController* controller) : CommandBase(controller) {
  setText({staticMetaObject, QT_TR_NOOP("&Find Command…")});
  setIcon(QtUiToolkit::Instance().CreateIcon(QStringLiteral("search")));
  setShortcut(Qt::CTRL | Qt::Key_K);
  setStatusTip({staticMetaObject, QT_TR_NOOP("Finds any command by a part of its name, and runs it")});
  setBaseGroupName(HelpSection);
}

bool FindCommandCommand::onExecuteAsync(bool) {
  const BaseView* const view = getView();
  auto* const palette = view ? view->window()->findChild<CommandPalette*>() : nullptr;
  if (palette)
    palette->open();
  return palette;
}

} // namespace Workbench
