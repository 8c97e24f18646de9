// SPDX-License-Identifier: MIT
#include <vlk_app_service/application_service.h>
#include <workbench/console.h>
#include <workbench/workbench_app.h>

#include <QApplication>

#include <algorithm>

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
  auto& kernel = ApplicationService::GetInstance().Kernel();
  const auto app = std::make_shared<WorkbenchApp>(options);
  kernel.registerService(app);
  if (kernel.start() != Taren::Core::RcmSuccess)
    return 1;
  const int ended = QApplication::exec();
  const int status = std::max(ended, app->status());
  kernel.stop();
  return status;
}

int writeTrace(const QString& file, int status) {
  QString error;
  if (file.isEmpty() || ApplicationService::GetInstance().Kernel().writeTrace(file, &error))
    return status;
  printError(file, error);
  return 1;
}

bool hasArgument(int argc, char** argv, const char* start) {
  return std::any_of(argv, argv + argc,
                     [start](const char* argument) { return QByteArray(argument).startsWith(start); });
}

// A screenshot can be taken where there is no display.
void choosePlatform([[maybe_unused]] int argc, [[maybe_unused]] char** argv) {
#if defined(Q_OS_UNIX) && !defined(Q_OS_MACOS)
  if (hasArgument(argc, argv, "--screenshot") && qEnvironmentVariableIsEmpty("DISPLAY") &&
      qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") && !qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
    qputenv("QT_QPA_PLATFORM", "offscreen");
#endif
}

} // namespace

int main(int argc, char** argv) {
  choosePlatform(argc, argv);
  if (hasArgument(argc, argv, "--web-panels"))
    QCoreApplication::setAttribute(Qt::AA_ShareOpenGLContexts);
  QApplication application(argc, argv);
  QApplication::setApplicationName(QStringLiteral("workbench"));
  QApplication::setApplicationDisplayName(QObject::tr("Workbench"));
  QApplication::setApplicationVersion(QStringLiteral(WORKBENCH_VERSION));
  QApplication::setOrganizationName(QStringLiteral("vlk_ui_base"));
  const Options options = Options::parse(QApplication::arguments());
  if (options.answer)
    return answer(*options.answer);
  return writeTrace(options.trace, run(options));
}
