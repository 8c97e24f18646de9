// SPDX-License-Identifier: MIT
// Uses something of every installed library and extends its classes: a command runs on another thread while
// the view's controller shows its messages, and ends.
#include "subclasses.h"

#include <qskrccommon/units.h>
#include <tqm_mesh_kernel/kernel.h>
#include <ui_base/commands/command_base.h>
#include <ui_base/views/base_view.h>
#include <ui_base/views/cmds_view_controller.h>
#include <ui_base/views/qt_ui_toolkit.h>
#include <vlk_app_service/application_service.h>
#include <vlk_app_service/i_app_manager.h>
#include <vlk_common_res/styles.h>
#include <vlk_license/license_service.h>

#include <QApplication>
#include <QFile>
#include <QThread>
#include <QTimer>

#include <atomic>
#include <cstdio>
#include <cstdlib>

using namespace Vela::UiBase;

namespace {

void require(bool condition, const char* what) {
  if (condition)
    return;
  std::fprintf(stderr, "consumer: %s\n", what);
  std::exit(1);
}

class WorkCommand : public CommandBase {
  Q_OBJECT
  COMMAND_ID(WorkCommand)

public:
  explicit WorkCommand(CmdsViewController* controller) : CommandBase(controller) {
    setText(tr("Work"));
    setExecutionQoS(Taren::Core::NormalQoS);
    setExecutionNotificationMessage(StartNotification, tr("Working…"));
    enableExecutionNotification(true);
  }

  bool onExecuteAsync(bool) override {
    ranElsewhere = QThread::currentThread() != thread();
    return true;
  }

  std::atomic_bool ranElsewhere = false;
};

struct AppManager : Vela::Services::IAppManager {
  QList<CommandBase*> commandsFor(CmdsViewController* controller) override {
    return {new WorkCommand(controller)};
  }
};

struct EndObserver : CommandStateProtocol {
  void commandEndedExecuting(CommandBase*, bool) override { QApplication::exit(0); }
};

} // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  auto& service = Vela::Services::ApplicationService::GetInstance();
  service.setAppManager(std::make_unique<AppManager>());

  require(!Vela::Resource::Styles::Instance().ToolButtonOnToolPalette().isEmpty(), "no style sheet");
  require(QFile::exists(QStringLiteral(":/qss/libuitoolkit.css")), "no resource of the common resources");
  require(Vela::Common::convert(1, Vela::Common::Metre, Vela::Common::Millimetre) == 1000, "wrong unit");
  require(Vela::License::LicenseService::Instance().isLicensed(), "not licensed");
  require(QtUiToolkit::Instance().IconProvider() != nullptr, "no icon provider");

  require(Subclasses::work(), "the subclasses do not work");

  auto* view = new BaseView;
  auto* controller = new CmdsViewController(view);
  view->show();
  auto* command = controller->findCommand<WorkCommand>();
  require(command != nullptr, "the command did not reach the controller");

  const auto observer = std::make_shared<EndObserver>();
  command->addObserver(observer, true);
  QTimer::singleShot(60000, &application, [] { QApplication::exit(2); });
  QTimer::singleShot(0, command, &QAction::trigger);

  const int status = QApplication::exec();
  require(status == 0, "the command did not end");
  require(command->ranElsewhere, "the work ran on the main thread");
  const auto waypoints = service.Kernel().waypoints().waypoints();
  require(!waypoints.isEmpty() && waypoints.constFirst().name.startsWith(QLatin1String("CMD BEGIN")),
          "no waypoints");
  require(view->close(), "the view did not close");
  return 0;
}

#include "main.moc"
