// SPDX-License-Identifier: MIT
#include "first_paint.h"

#include <ui_base/views/qt_ui_toolkit.h>
#include <vlk_app_service/application_service.h>
#include <vlk_common_res/styles.h>
#include <workbench/commands/dark_palette_command.h>
#include <workbench/main_window.h>
#include <workbench/mesh_view_controller.h>
#include <workbench/workbench_app_manager.h>
#include <workbench/workbench_icon_provider.h>

using namespace Workbench;

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  Vela::UiBase::QtUiToolkit::Instance().IconProvider(new WorkbenchIconProvider);
  Vela::Services::ApplicationService::GetInstance().setAppManager(std::make_unique<WorkbenchAppManager>());
  DarkPaletteCommand::restorePalette();
  QApplication::setFont(Vela::Resource::Styles::Instance().FontLabel()); // as the program does
  MainWindow window;
  window.resize(1280, 800);
  new Vela::Benchmarks::FirstPaint(&window);
  window.show();
  return QApplication::exec();
}
