// SPDX-License-Identifier: MIT
#include "cmds_view_controller.h"

#include "base_view.h"
#include "cmds_view_controller_p.h"

#include <ui_base/commands/command_base.h>
#include <vlk_app_service/application_service.h>
#include <vlk_app_service/i_app_manager.h>
#include <vlk_common_res/strings.h>

#include <QActionGroup>
#include <QPointer>

#include <utility>
#include <vector>

namespace Vela::UiBase {

namespace {

constexpr int notificationDurationMs = 3000;

using Resource::String;

std::shared_ptr<CommandGroup> makeGroup(const QString& text, const QString& id) {
  return Taren::Objects::adoptShared(new CommandGroup(QString(), text, id));
}

} // namespace

CmdsViewControllerPrivate::CmdsViewControllerPrivate(BaseViewController& controller)
    : actionPanelGroup(makeGroup(String::ACTIONS_GROUP_TEXT(), String::COMMAND_ACTIONPANEL_GROUP_ID())),
      toolPanelGroup(makeGroup(String::TOOLS_GROUP_TEXT(), String::COMMAND_TOOLPANEL_GROUP_ID())),
      dynamicToolPanelGroup(
          makeGroup(String::DYNAMIC_TOOLS_GROUP_TEXT(), String::COMMAND_DYNAMIC_TOOLPANEL_GROUP_ID())),
      runNotices(controller) {
  toolPanelGroup->groupActionGroup()->setExclusive(false);
}

CmdsViewController::CmdsViewController() : d(std::make_unique<CmdsViewControllerPrivate>(*this)) {}

// The view is attached here, because arguments for a virtual base are ignored below the most derived class.
CmdsViewController::CmdsViewController(BaseView* view) : CmdsViewController() { setView(view); }

CmdsViewController::~CmdsViewController() {
  BaseViewController::beginDestruction();
  d->dying = true;
  QCoreApplication::removePostedEvents(this, QEvent::DeferredDelete); // as in the base
  // While a tool or a command that dies of it can still ask for its controller.
  releaseTools();
  d->cursors.clear();
  dropCommands();
}

CommandGroup* CmdsViewController::ActionPanelGroup() const { return d->actionPanelGroup.get(); }

CommandGroup* CmdsViewController::DynamicToolPanelGroup() const { return d->dynamicToolPanelGroup.get(); }

CommandGroup* CmdsViewController::ToolPanelGroup() const { return d->toolPanelGroup.get(); }

int CmdsViewController::runNoticeDelay() const { return d->runNotices.delay(); }

void CmdsViewController::setRunNoticeDelay(int milliseconds) { d->runNotices.setDelay(milliseconds); }

void CmdsViewController::viewDidLoad() {
  const QPointer<BaseViewController> self(this);
  BaseViewController::viewDidLoad();
  if (self && std::exchange(d->hasCommandsOfLostView, false))
    removeAllCommands();
  auto* const appManager = Services::ApplicationService::GetInstance().GetAppManager();
  if (!self || !appManager || d->dying)
    return;
  // All are owned before the first is added, which may be refused.
  std::vector<std::shared_ptr<CommandBase>> owned;
  const QList<CommandBase*> commands = appManager->commandsFor(this);
  for (CommandBase* const command : commands)
    owned.push_back(Taren::Objects::adoptShared(command));
  for (const auto& command : owned) {
    if (command && self)
      addCommand(command.get());
  }
}

void CmdsViewController::viewChanged(bool inReach) {
  d->cursors.moveTo(getView());
  d->cursors.setInReach(inReach);
}

void CmdsViewController::mouseWasLost() { endRunningOperation(); }

void CmdsViewController::viewWasLost() {
  const QPointer<BaseViewController> self(this);
  d->hasCommandsOfLostView = true;
  endRunningOperation();
  if (self)
    BaseViewController::viewWasLost();
}

void CmdsViewController::viewWillDisappear() {
  const QPointer<BaseViewController> self(this);
  endRunningOperation();
  if (self)
    BaseViewController::viewWillDisappear();
}

bool CmdsViewController::viewWillClose() {
  const QPointer<BaseViewController> self(this);
  endRunningOperation();
  if (self && !d->dying) // else it is past having a context
    setContext(inactiveContext());
  if (self)
    removeAllCommands();
  return !self || BaseViewController::viewWillClose();
}

void CmdsViewController::commandForgotten(CommandBase& command) {
  d->executing.forget(command);
  d->busyCursors.restoreAll(&command);
}

void CmdsViewController::commandBegan(CommandBase* command) {
  const QPointer<BaseViewController> self(this);
  const bool takesInput = command && d->executing.began(*command);
  CmdMgr::commandBegan(command);
  if (takesInput && self)
    endRunningOperation(); // its mouse is the command's now
}

void CmdsViewController::commandEnded(CommandBase* command) {
  if (command)
    d->executing.ended(*command);
  CmdMgr::commandEnded(command);
}

void CmdsViewController::commandBeganExecuting(CommandBase* command, bool) {
  if (!command)
    return;
  d->executing.beganExecuting(*command);
  if (!command->isExecutionNotificationEnabled())
    return;
  d->busyCursors.set(command);
  const QString message = command->getExecutionNotificationMessage(StartNotification);
  const CommandRun run = CommandRun::current();
  d->runNotices.began(run, message.isEmpty() ? tr("%1…").arg(run.text()) : message);
  if (!message.isEmpty())
    showNotification(message, FadeInOnly, notificationDurationMs);
}

void CmdsViewController::commandEndedExecuting(CommandBase* command, bool) {
  if (!command)
    return;
  d->executing.endedExecuting(*command);
  d->busyCursors.restore(command);
  const CommandRun run = CommandRun::current();
  d->runNotices.ended(run);
  if (!command->isExecutionNotificationEnabled())
    return;
  const QString start = command->getExecutionNotificationMessage(StartNotification);
  const QString end = run.outcome() == RunStopped ? tr("%1 was cancelled.").arg(run.text())
                                                  : command->getExecutionNotificationMessage(EndNotification);
  if (!end.isEmpty())
    showNotification(end, start.isEmpty() ? FadeInAndOut : FadeOutOnly, notificationDurationMs);
  else if (!start.isEmpty())
    hideNotification();
}

} // namespace Vela::UiBase
