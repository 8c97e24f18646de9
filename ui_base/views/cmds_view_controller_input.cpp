// SPDX-License-Identifier: MIT
#include "base_view.h"
#include "cmds_view_controller_p.h"

#include <ui_base/tools/interactive_tool.h>

#include <QMouseEvent>
#include <QPointer>

#include <utility>

namespace Vela::UiBase {

namespace {

EToolActivationButton keyOf(Qt::MouseButton button) { return static_cast<EToolActivationButton>(button); }

EToolActivationButton heldButton(Qt::MouseButtons buttons) {
  if (buttons.testFlag(Qt::RightButton))
    return RightButton;
  return buttons.testFlag(Qt::MiddleButton) ? MiddleButton : LeftButton;
}

} // namespace

/// @return whether the event is done: the command took it, or the controller died of it.
template <class Event>
bool CmdsViewController::offerToCommand(bool (ViewResponder::*handler)(Event*), Event* event) {
  const auto command = d->executing.responder();
  if (!command)
    return false;
  const Lifetime::Guard self(d->lifetime);
  return (command.get()->*handler)(event) || self.ended();
}

bool CmdsViewController::mousePress(QMouseEvent* event) {
  if (offerToCommand(&ViewResponder::mousePress, event))
    return true;
  const EToolActivationButton button = keyOf(event->button());
  const QPointer<BaseViewController> self(this);
  if (const auto operating = getOperatingTool(); operating != getTool(button))
    endOperation(operating);
  if (!self)
    return true;
  if (button == RightButton) {
    d->pendingRightPress = MousePress(*event);
    return false;
  }
  const auto tool = getTool(button);
  return tool && tool->mousePress(event);
}

bool CmdsViewController::mouseMove(QMouseEvent* event) {
  if (!d->pendingRightPress.isNull() && event->spontaneous() && !event->buttons().testFlag(Qt::RightButton))
    takeRightPress();
  if (d->executing.takesInput()) {
    const auto before = event->spontaneous() ? getOperatingTool() : nullptr; // no other loses an operation
    if (offerToCommand(&ViewResponder::mouseMove, event)) {
      endLostOperation(before, *event);
      return true;
    }
  }
  auto tool = getOperatingTool();
  if (!tool)
    tool = toolOfHeldButton(*event);
  const bool taken = tool && tool->mouseMove(event);
  if (event->spontaneous())
    endLostOperation(tool, *event);
  return taken;
}

/// The tool of the button held, which the press held back may start.
std::shared_ptr<InteractiveTool> CmdsViewController::toolOfHeldButton(const QMouseEvent& event) {
  const EToolActivationButton button = heldButton(event.buttons());
  auto tool = getTool(button);
  if (tool && button == RightButton && !d->pendingRightPress.isNull()) {
    QMouseEvent press = takeRightPress().toEvent();
    tool->mousePress(&press);
  }
  return tool;
}

bool CmdsViewController::mouseRelease(QMouseEvent* event) {
  const bool isRightClick = !takeRightPress().isNull() && event->button() == Qt::RightButton;
  const auto before = getOperatingTool();
  if (offerToCommand(&ViewResponder::mouseRelease, event)) {
    endLostOperation(before, *event);
    return true;
  }
  if (const auto operating = getOperatingTool()) {
    const bool taken = operating->mouseRelease(event);
    endLostOperation(operating, *event);
    return taken;
  }
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
  if (const auto operating = getOperatingTool(); operating && operating != getTool(NoButton))
    return false;
  const QPointer<BaseViewController> self(this);
  const auto primary = getTool(LeftButton);
  if ((primary && primary->mouseWheel(event)) || !self)
    return true;
  const auto wheelTool = getTool(NoButton);
  return wheelTool && wheelTool->mouseWheel(event);
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

MousePress CmdsViewController::takeRightPress() { return std::exchange(d->pendingRightPress, {}); }

// The release went elsewhere when the mouse is back without the button. Events that a program made up need
// not carry the buttons.
void CmdsViewController::endLostOperation(const std::shared_ptr<InteractiveTool>& tool,
                                          const QMouseEvent& event) {
  if (!event.spontaneous() || !tool || tool->pressEvent().isNull())
    return;
  if (!event.buttons().testFlag(tool->pressEvent().button()))
    endOperation(tool);
}

} // namespace Vela::UiBase
