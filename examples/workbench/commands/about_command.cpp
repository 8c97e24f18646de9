// SPDX-License-Identifier: MIT
#include "about_command.h"

#include <ui_base/views/base_view.h>
#include <ui_base/views/qt_ui_toolkit.h>
#include <workbench/command_menus.h>
#include <workbench/mesh_view_controller.h>

#include <QCoreApplication>
#include <QMessageBox>

namespace Workbench {

using namespace Vela::UiBase;

AboutCommand::AboutCommand(MeshViewController* controller) : CommandBase(controller) {
  setText(tr("&About Workbench"));
  setIcon(QtUiToolkit::Instance().CreateIcon(QStringLiteral("info")));
  setMenuRole(QAction::AboutRole);
  setBaseGroupName(HelpSection);
}

bool AboutCommand::onExecuteAsync(bool) {
  const BaseView* const view = getView();
  auto* const box = new QMessageBox(view ? view->window() : nullptr);
  box->setAttribute(Qt::WA_DeleteOnClose);
  box->setWindowTitle(tr("About Workbench"));
  box->setIconPixmap(QtUiToolkit::Instance().CreateIcon(QStringLiteral("smooth_shading")).pixmap(48, 48));
  box->setText(tr("<b>Workbench %1</b>").arg(QCoreApplication::applicationVersion()));
  box->setInformativeText(tr("A demonstration of the vlk_ui_base library: a command opens a mesh on another "
                             "thread, a view shows it, and every step is announced.\n\nBuilt with Qt %1.")
                              .arg(QString::fromLatin1(qVersion())));
  box->open();
  return true;
}

} // namespace Workbench
