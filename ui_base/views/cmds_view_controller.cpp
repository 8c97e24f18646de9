// SPDX-License-Identifier: MIT
#include "cmds_view_controller.h"

#include "base_view.h"
#include "busy_cursors.h"
#include "executing_command.h"
#include "mouse_loss_watch.h"
#include "view_cursors.h"

#include <ui_base/commands/command_base.h>
#include <ui_base/commands/command_group.h>
#include <ui_base/tools/interactive_tool.h>
#include <vlk_app_service/application_service.h>
#include <vlk_app_service/i_app_manager.h>
#include <vlk_common_res/strings.h>

#include <QActionGroup>
#include <QMouseEvent>

#include <utility>
#include <vector>

namespace Vela::UiBase {

namespace {

constexpr int notificationDurationMs = 3000;

using Resource::String;

std::shared_ptr<CommandGroup> makeGroup(const QString& text, const QString& id) {
  return Taren::Objects::adoptShared(new CommandGroup(QString(), text, id));
}

EToolActivationButton keyOf(Qt::MouseButton button) { return static_cast<EToolActivationButton>(button); }

EToolActivationButton heldButton(Qt::MouseButtons buttons) {
  if (buttons.testFlag(Qt::RightButton))
    return RightButton;
  return buttons.testFlag(Qt::MiddleButton) ? MiddleButton : LeftButton;
}

} // namespace

class CmdsViewControllerPrivate {
public:
  explicit CmdsViewControllerPrivate(std::function<void()> mouseLost) : watch(std::move(mouseLost)) {
    toolPanelGroup->groupActionGroup()->setExclusive(false);
  }

  std::shared_ptr<CommandGroup> actionPanelGroup =
      makeGroup(String::ACTIONS_GROUP_TEXT(), String::COMMAND_ACTIONPANEL_GROUP_ID());
  std::shared_ptr<CommandGroup> toolPanelGroup =
      makeGroup(String::TOOLS_GROUP_TEXT(), String::COMMAND_TOOLPANEL_GROUP_ID());
  std::shared_ptr<CommandGroup> dynamicToolPanelGroup =
      makeGroup(String::DYNAMIC_TOOLS_GROUP_TEXT(), String::COMMAND_DYNAMIC_TOOLPANEL_GROUP_ID());

  ViewCursors cursors;
  MousePress pendingRightPress; // not yet given to a tool
  ExecutingCommand executing;
  MouseLossWatch watch; // on while there is an operation or a pending press
  BusyCursors busyCursors;
  bool hasCommandsOfLostView = false; // which did not close, and so did not let go of them
};

CmdsViewController::CmdsViewController()
    : d(std::make_unique<CmdsViewControllerPrivate>([this] { endRunningOperation(); })) {}

// The view is attached here, because arguments for a virtual base are ignored below the most derived class.
CmdsViewController::CmdsViewController(BaseView* view) : CmdsViewController() { setView(view); }

CmdsViewController::~CmdsViewController() {
  BaseViewController::beginDestruction();
  d->cursors.restoreAll();
  // While a tool or a command that dies of it can still ask for its controller.
  ToolStack::clearTools();
  commandBag().clear();
}

CommandGroup* CmdsViewController::ActionPanelGroup() const { return d->actionPanelGroup.get(); }

CommandGroup* CmdsViewController::DynamicToolPanelGroup() const { return d->dynamicToolPanelGroup.get(); }

CommandGroup* CmdsViewController::ToolPanelGroup() const { return d->toolPanelGroup.get(); }

void CmdsViewController::viewDidLoad() {
  BaseViewController::viewDidLoad();
  if (std::exchange(d->hasCommandsOfLostView, false))
    removeAllCommands();
  if (!d->cursors.belongTo(getView()) && getTool(LeftButton))
    resetTools(); // pushed when there was no view, or another one
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
  endRunningOperation();
  d->cursors.restoreAll();
  BaseViewController::viewWasLost();
}

void CmdsViewController::viewWillDisappear() {
  endRunningOperation();
  BaseViewController::viewWillDisappear();
}

bool CmdsViewController::viewWillClose() {
  endRunningOperation();
  setContext(inactiveContext());
  removeAllCommands();
  return BaseViewController::viewWillClose();
}

void CmdsViewController::commandForgotten(CommandBase& command) {
  d->executing.forget(command);
  d->busyCursors.restoreAll(&command);
}

template <class Event>
bool CmdsViewController::offerToCommand(bool (ViewResponder::*handler)(Event*), Event* event) {
  const auto command = d->executing.responder();
  return command && (command.get()->*handler)(event);
}

bool CmdsViewController::mousePress(QMouseEvent* event) {
  if (offerToCommand(&ViewResponder::mousePress, event))
    return true;
  const auto operating = getOperatingTool();
  const auto tool = getTool(keyOf(event->button()));
  if (operating != tool)
    endOperation(operating);
  if (event->button() == Qt::RightButton) {
    holdBack(*event);
    return false;
  }
  return tool && tool->mousePress(event);
}

bool CmdsViewController::mouseMove(QMouseEvent* event) {
  const auto taken = [this, event] {
    if (offerToCommand(&ViewResponder::mouseMove, event))
      return true;
    auto tool = getOperatingTool();
    if (!tool) {
      const EToolActivationButton button = heldButton(event->buttons());
      tool = getTool(button);
      if (tool && button == RightButton && !d->pendingRightPress.isNull()) {
        QMouseEvent press = takeRightPress().toEvent();
        tool->mousePress(&press);
      }
    }
    return tool && tool->mouseMove(event);
  }();
  endLostOperation(*event);
  return taken;
}

bool CmdsViewController::mouseRelease(QMouseEvent* event) {
  const bool isRightClick = !takeRightPress().isNull() && event->button() == Qt::RightButton;
  if (offerToCommand(&ViewResponder::mouseRelease, event)) {
    endLostOperation(*event);
    return true;
  }
  const auto operating = getOperatingTool();
  if (operating && operating->mouseRelease(event))
    return true;
  return isRightClick && rightClick(event);
}

bool CmdsViewController::mouseDoubleClick(QMouseEvent* event) {
  if (offerToCommand(&ViewResponder::mouseDoubleClick, event))
    return true;
  const auto tool = getTool(keyOf(event->button()));
  if (const auto operating = getOperatingTool()) {
    if (operating != tool)
      endOperation(operating);
    return false;
  }
  return tool && tool->mouseDoubleClick(event);
}

bool CmdsViewController::mouseWheel(QWheelEvent* event) {
  if (offerToCommand(&ViewResponder::mouseWheel, event))
    return true;
  const auto wheelTool = getTool(NoButton);
  const auto primary = getTool(LeftButton);
  if (const auto operating = getOperatingTool(); operating && operating != wheelTool)
    return false;
  return (primary && primary->mouseWheel(event)) || (wheelTool && wheelTool->mouseWheel(event));
}

bool CmdsViewController::keyPress(QKeyEvent* event) {
  if (offerToCommand(&ViewResponder::keyPress, event))
    return true;
  const auto primary = getTool(LeftButton);
  return primary && primary->keyPress(event);
}

bool CmdsViewController::keyRelease(QKeyEvent* event) {
  if (offerToCommand(&ViewResponder::keyRelease, event))
    return true;
  const auto primary = getTool(LeftButton);
  return primary && primary->keyRelease(event);
}

bool CmdsViewController::mouseEnter(QEvent* event) {
  return offerToCommand(&ViewResponder::mouseEnter, event);
}

bool CmdsViewController::mouseLeave(QEvent* event) {
  return offerToCommand(&ViewResponder::mouseLeave, event);
}

bool CmdsViewController::mouseDragEnter(QDragEnterEvent* event) {
  return offerToCommand(&ViewResponder::mouseDragEnter, event);
}

bool CmdsViewController::mouseDragLeave(QDragLeaveEvent* event) {
  return offerToCommand(&ViewResponder::mouseDragLeave, event);
}

bool CmdsViewController::mouseDragMove(QDragMoveEvent* event) {
  return offerToCommand(&ViewResponder::mouseDragMove, event);
}

bool CmdsViewController::mouseDrop(QDropEvent* event) {
  return offerToCommand(&ViewResponder::mouseDrop, event);
}

bool CmdsViewController::rightClick(QMouseEvent*) { return false; }

void CmdsViewController::holdBack(const QMouseEvent& rightPress) {
  d->pendingRightPress = MousePress(rightPress);
  d->watch.start(getView());
}

MousePress CmdsViewController::takeRightPress() {
  const MousePress press = std::exchange(d->pendingRightPress, {});
  if (!press.isNull())
    stopWatchUnlessNeeded();
  return press;
}

void CmdsViewController::stopWatchUnlessNeeded() {
  if (d->pendingRightPress.isNull() && !getOperatingTool())
    d->watch.stop();
}

void CmdsViewController::endOperation(const std::shared_ptr<InteractiveTool>& tool) {
  if (tool && tool->isOperating())
    tool->endOperation();
}

void CmdsViewController::endRunningOperation() {
  takeRightPress();
  endOperation(getOperatingTool());
}

// The release went elsewhere when the mouse is back without the button. Events that a program made up need
// not carry the buttons.
void CmdsViewController::endLostOperation(const QMouseEvent& event) {
  if (!event.spontaneous())
    return;
  if (!event.buttons().testFlag(Qt::RightButton))
    takeRightPress();
  const auto tool = getOperatingTool();
  if (tool && !tool->pressEvent().isNull() && !event.buttons().testFlag(tool->pressEvent().button()))
    endOperation(tool);
}

bool CmdsViewController::isPrimary(const InteractiveTool* tool) {
  return tool && getTool(LeftButton).get() == tool;
}

void CmdsViewController::clearTools() {
  endRunningOperation();
  ToolStack::clearTools();
  d->cursors.restoreAll();
}

void CmdsViewController::pushTool(EToolActivationButton button, std::shared_ptr<InteractiveTool> tool) {
  if (!tool)
    return;
  endOperation(getTool(button));
  ToolStack::pushTool(button, tool);
  if (isPrimary(tool.get()) && getOperatingTool())
    tool->suspend();
}

std::shared_ptr<InteractiveTool> CmdsViewController::popTool(EToolActivationButton button) {
  const auto top = getTool(button);
  endOperation(top);
  // A primary tool that waits for another one leaves as if it did not, and the next one waits in its place.
  const bool waits = button == LeftButton && top && top->isSuspended() && getOperatingTool();
  if (waits)
    top->resume();
  auto popped = ToolStack::popTool(button);
  if (const auto next = getTool(LeftButton); waits && next && getOperatingTool())
    next->suspend();
  return popped;
}

void CmdsViewController::toolActivated(InteractiveTool* tool) {
  if (isPrimary(tool))
    d->cursors.replace(getView(), tool->getIdleCursor());
}

void CmdsViewController::toolResumed(InteractiveTool* tool) { CmdsViewController::toolActivated(tool); }

void CmdsViewController::toolDeactivated(InteractiveTool* tool) {
  if (isPrimary(tool))
    d->cursors.restore(getView());
}

void CmdsViewController::toolSuspended(InteractiveTool* tool) { CmdsViewController::toolDeactivated(tool); }

// The primary tool lets go of its cursor before this one's is shown, and takes it again after that is gone.
void CmdsViewController::toolBeganOperating(InteractiveTool* tool) {
  if (!tool)
    return;
  ToolStack::toolBeganOperating(tool);
  d->cursors.replace(getView(), tool->getOperatingCursor());
  d->watch.start(getView());
}

void CmdsViewController::toolEndedOperating(InteractiveTool* tool) {
  if (!tool)
    return;
  d->cursors.restore(getView());
  ToolStack::toolEndedOperating(tool);
  stopWatchUnlessNeeded();
}

void CmdsViewController::toolCursorChange(InteractiveTool* tool) {
  if (BaseView* const view = getView(); view && tool)
    view->setCursor(tool->getOperatingCursor());
}

void CmdsViewController::commandBegan(CommandBase* command) {
  CmdMgr::commandBegan(command);
  if (!command)
    return;
  d->executing.began(*command);
  if (d->executing.takesInput())
    endRunningOperation(); // its mouse is the command's now
}

void CmdsViewController::commandEnded(CommandBase* command) {
  CmdMgr::commandEnded(command);
  if (command)
    d->executing.ended(*command);
}

void CmdsViewController::commandBeganExecuting(CommandBase* command, bool) {
  if (!command)
    return;
  d->executing.beganExecuting(*command);
  if (!command->isExecutionNotificationEnabled())
    return;
  d->busyCursors.set(command);
  const QString message = command->getExecutionNotificationMessage(StartNotification);
  if (!message.isEmpty())
    showNotification(message, FadeInOnly, notificationDurationMs, false, nullptr, nullptr);
}

void CmdsViewController::commandEndedExecuting(CommandBase* command, bool) {
  if (!command)
    return;
  d->executing.endedExecuting(*command);
  d->busyCursors.restore(command);
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
