// SPDX-License-Identifier: MIT
#include <ui_base/popups/notification_bar.h>
#include <ui_base/views/qt_ui_toolkit.h>
#include <vlk_app_service/application_service.h>
#include <workbench/commands/dark_palette_command.h>
#include <workbench/console.h>
#include <workbench/main_window.h>
#include <workbench/mesh_view_controller.h>
#include <workbench/options.h>
#include <workbench/screenshot_run.h>
#include <workbench/workbench_app_manager.h>
#include <workbench/workbench_icon_provider.h>

#include <QApplication>

#include <algorithm>
#include <optional>

using namespace Workbench;
using Vela::Services::ApplicationService;

namespace {

int answer(const Options::Answer& answer) {
  if (answer.status == 0)
    print(answer.text);
  else
    std::fputs(answer.text.toLocal8Bit().constData(), stderr);
  return answer.status;
}

int run(const Options& options) {
  MainWindow window;
  QObject::connect(&window.controller()->events(), &MeshViewEvents::openFailed, &window, &printError);
  window.resize(options.size);
  window.show();
  std::optional<ScreenshotRun> screenshot;
  if (options.screenshot.isEmpty()) {
    window.controller()->openFiles(options.files);
  } else {
    Vela::UiBase::NotificationBar::setDefaultFadeDuration(0);
    screenshot.emplace(window, options.screenshot);
    screenshot->start(options.files);
  }
  const int status = QApplication::exec();
  return screenshot ? screenshot->status() : status;
}

int writeTrace(const QString& file, int status) {
  QString error;
  if (file.isEmpty() || ApplicationService::GetInstance().Kernel().writeTrace(file, &error))
    return status;
  printError(file, error);
  return 1;
}

// A screenshot can be taken where there is no display.
void choosePlatform([[maybe_unused]] int argc, [[maybe_unused]] char** argv) {
#if defined(Q_OS_UNIX) && !defined(Q_OS_MACOS)
  const bool screenshot = std::any_of(argv, argv + argc, [](const char* argument) {
    return QByteArray(argument).startsWith("--screenshot");
  });
  if (screenshot && qEnvironmentVariableIsEmpty("DISPLAY") &&
      qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") && !qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
    qputenv("QT_QPA_PLATFORM", "offscreen");
#endif
}

} // namespace

int main(int argc, char** argv) {
  choosePlatform(argc, argv);
  QApplication application(argc, argv);
  QApplication::setApplicationName(QStringLiteral("workbench"));
  QApplication::setApplicationDisplayName(QObject::tr("Workbench"));
  QApplication::setApplicationVersion(QStringLiteral(WORKBENCH_VERSION));
  QApplication::setOrganizationName(QStringLiteral("vlk_ui_base"));
  const Options options = Options::parse(QApplication::arguments());
  if (options.answer)
    return answer(*options.answer);

  Vela::UiBase::QtUiToolkit::Instance().IconProvider(new WorkbenchIconProvider);
  ApplicationService::GetInstance().setAppManager(std::make_unique<WorkbenchAppManager>());
  DarkPaletteCommand::restorePalette();
  return writeTrace(options.trace, run(options));
}
