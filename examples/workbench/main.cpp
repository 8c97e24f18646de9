// SPDX-License-Identifier: MIT
#include <vlk_app_service/application_service.h>
#include <workbench/console.h>
#include <workbench/language.h>
#include <workbench/workbench_app.h>

#include <QApplication>
#include <QRegularExpression>

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

void nameApplication() {
  QCoreApplication::setApplicationName(QStringLiteral("workbench"));
  QCoreApplication::setApplicationVersion(QStringLiteral(WORKBENCH_VERSION));
  QCoreApplication::setOrganizationName(QStringLiteral("vlk_ui_base"));
  QGuiApplication::setDesktopFileName(QStringLiteral("vlk_workbench"));
}

// What a QApplication takes out of its arguments: "-platform xcb", "-style=fusion", "-reverse".
QStringList withoutQtOptions(const QStringList& arguments) {
  static const QRegularExpression option(
      QStringLiteral("^--?(platform|platformpluginpath|platformtheme|plugin|qwindowgeometry|qwindowicon|"
                     "qwindowtitle|session|display|geometry|fontengine|style|stylesheet)(=.*)?$"));
  static const QRegularExpression flag(QStringLiteral("^--?(reverse|nograb|dograb|sync|widgetcount)$"));
  QStringList left;
  for (qsizetype i = 0; i < arguments.size(); ++i) {
    const QRegularExpressionMatch match = option.match(arguments[i]);
    if (match.hasMatch())
      i += match.captured(2).isEmpty() ? 1 : 0;
    else if (!flag.match(arguments[i]).hasMatch())
      left.append(arguments[i]);
  }
  return left;
}

// Help, the version and complaints about the arguments need no window system.
std::optional<Options::Answer> answerWithoutDisplay(int argc, char** argv) {
  if (argc < 2)
    return std::nullopt;
  const QCoreApplication application(argc, argv);
  Language::restore();
  return Options::parse(withoutQtOptions(QCoreApplication::arguments())).answer;
}

// A screenshot can be taken, and a session be done again, where there is no display.
void choosePlatform([[maybe_unused]] int argc, [[maybe_unused]] char** argv) {
#if defined(Q_OS_UNIX) && !defined(Q_OS_MACOS)
  if ((hasArgument(argc, argv, "--screenshot") || hasArgument(argc, argv, "--replay")) &&
      qEnvironmentVariableIsEmpty("DISPLAY") && qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") &&
      !qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
    qputenv("QT_QPA_PLATFORM", "offscreen");
#endif
}

} // namespace

int main(int argc, char** argv) {
  useTerminal();
  nameApplication();
  if (const auto early = answerWithoutDisplay(argc, argv))
    return answer(*early);
  choosePlatform(argc, argv);
  if (hasArgument(argc, argv, "--web-panels"))
    QCoreApplication::setAttribute(Qt::AA_ShareOpenGLContexts);
  QApplication application(argc, argv);
  QApplication::setApplicationDisplayName(QObject::tr("Workbench"));
  const Options options = Options::parse(QApplication::arguments());
  return writeTrace(options.trace, run(options));
}
