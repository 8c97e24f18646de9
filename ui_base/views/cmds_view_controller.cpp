// SPDX-License-Identifier: MIT
#include "cmds_view_controller.h"

#include "base_view.h"

#include <ui_base/commands/command_base.h>
#include <vlk_app_service/application_service.h>
#include <vlk_app_service/i_app_manager.h>

#include <QGuiApplication>
#include <QHash>

#include <vector>

namespace Vela::UiBase {

namespace {

constexpr int notificationDurationMs = 3000;

} // namespace

/// Remembers for which commands a busy cursor was set, so that each one set is restored once, whatever became
/// of the command meanwhile.
class CmdsViewControllerPrivate {
public:
  ~CmdsViewControllerPrivate() { restoreAllCursors(); }

  bool hasCommandsOfLostView = false; // which did not close, and so did not let go of them

  void setBusyCursor(const CommandBase* command) {
    QGuiApplication::setOverrideCursor(Qt::BusyCursor);
    ++busyCursors[command];
  }
  void restoreCursor(const CommandBase* command) {
    const auto found = busyCursors.find(command);
    if (found == busyCursors.end())
      return;
    QGuiApplication::restoreOverrideCursor();
    if (--*found == 0)
      busyCursors.erase(found);
  }
  void restoreCursors(const CommandBase* command) {
    while (busyCursors.contains(command))
      restoreCursor(command);
  }
  void restoreAllCursors() {
    while (!busyCursors.isEmpty())
      restoreCursor(busyCursors.cbegin().key());
  }

private:
  QHash<const CommandBase*, int> busyCursors; // keys are compared, never followed
};

CmdsViewController::CmdsViewController() : d(std::make_unique<CmdsViewControllerPrivate>()) {}

// The view is attached here, because arguments for a virtual base are ignored below the most derived class.
CmdsViewController::CmdsViewController(BaseView* view) : CmdsViewController() { setView(view); }

CmdsViewController::~CmdsViewController() {
  BaseViewController::beginDestruction();
  commandBag().clear(); // while a command that dies of it can still ask for its controller
}

void CmdsViewController::viewDidLoad() {
  BaseViewController::viewDidLoad();
  if (std::exchange(d->hasCommandsOfLostView, false))
    removeAllCommands();
  auto* const appManager = Services::ApplicationService::GetInstance().GetAppManager();
  if (!appManager)
    return;
  // All are owned before the first is added, which may be refused.
  std::vector<std::shared_ptr<CommandBase>> owned;
  const QList<CommandBase*> commands = appManager->commandsFor(this);
  for (CommandBase* const command : commands)
    owned.push_back(Taren::Objects::adoptShared(command));
  for (const auto& command : owned) {
    if (command)
      addCommand(command.get());
  }
}

void CmdsViewController::viewWasLost() {
  d->hasCommandsOfLostView = true;
  BaseViewController::viewWasLost();
}

bool CmdsViewController::viewWillClose() {
  setContext(inactiveContext());
  removeAllCommands();
  return BaseViewController::viewWillClose();
}

void CmdsViewController::commandForgotten(CommandBase& command) { d->restoreCursors(&command); }

void CmdsViewController::commandBeganExecuting(CommandBase* command, bool) {
  if (!command || !command->isExecutionNotificationEnabled())
    return;
  d->setBusyCursor(command);
  const QString message = command->getExecutionNotificationMessage(StartNotification);
  if (!message.isEmpty())
    showNotification(message, FadeInOnly, notificationDurationMs, false, nullptr, nullptr);
}

void CmdsViewController::commandEndedExecuting(CommandBase* command, bool) {
  if (!command)
    return;
  d->restoreCursor(command);
  if (!command->isExecutionNotificationEnabled())
    return;
  const QString start = command->getExecutionNotificationMessage(StartNotification);
  const QString end = command->getExecutionNotificationMessage(EndNotification);
  if (!end.isEmpty())
    showNotification(end, start.isEmpty() ? FadeInAndOut : FadeOutOnly, notificationDurationMs, false,
                     nullptr, nullptr);
  else if (!start.isEmpty())
    hideNotification();
}

} // namespace Vela::UiBase
