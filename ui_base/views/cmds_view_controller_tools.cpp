// SPDX-License-Identifier: MIT
#include "base_view.h"
#include "cmds_view_controller_p.h"

#include <ui_base/tools/interactive_tool.h>

#include <QPointer>
#include <QScopedValueRollback>

#include <utility>

namespace Vela::UiBase {

void CmdsViewController::endOperation(const std::shared_ptr<InteractiveTool>& tool) {
  if (tool && tool->isOperating())
    tool->endOperation();
}

// A tool that is pushed was left in any state by the stack before, one that is popped may wait for another.
// What hears of it may begin an operation anew; who always does is left to itself.
void CmdsViewController::bringToRest(const std::shared_ptr<InteractiveTool>& tool) {
  constexpr int maxTurns = 4;
  const auto rests = [&tool] { return !tool->isActive() && !tool->isSuspended() && !tool->isOperating(); };
  for (int turn = 0; turn < maxTurns && !rests(); ++turn) {
    endOperation(tool);
    tool->resume();
    tool->deactivate();
  }
}

void CmdsViewController::endRunningOperation() {
  takeRightPress();
  endOperation(getOperatingTool());
}

bool CmdsViewController::isPrimary(const InteractiveTool* tool) {
  return tool && getTool(LeftButton).get() == tool;
}

void CmdsViewController::clearTools() {
  const QPointer<BaseViewController> self(this);
  endRunningOperation();
  if (!self)
    return;
  d->cursors.clear();
  const auto released = heldTools();
  ToolStack::clearTools();
  for (const HeldTool& entry : released) // some may outlive the controller
    entry.tool->setDelegate(nullptr, false);
}

bool CmdsViewController::mayTake(const InteractiveTool& tool) const {
  const auto* const holder = dynamic_cast<const ToolStack*>(tool.getDelegate());
  return !d->dying && !holds(tool) && !(holder && holder->holds(tool));
}

// What hears of it may push the same tool, here or elsewhere: until it lies on its stack no other takes it.
void CmdsViewController::pushTool(EToolActivationButton button, std::shared_ptr<InteractiveTool> tool) {
  if (!tool || tool->m_moves || !mayTake(*tool))
    return;
  const QPointer<BaseViewController> self(this);
  const QScopedValueRollback moves(tool->m_moves, true);
  bringToRest(tool);
  if (self)
    endOperation(getTool(button));
  if (!self || !mayTake(*tool))
    return;
  ToolStack::pushTool(button, tool);
  if (self)
    keepToolsWaiting();
}

// What heard of a change may have begun or ended an operation below the top, or while another one waited.
void CmdsViewController::keepToolsWaiting() {
  const QPointer<BaseViewController> self(this);
  const auto held = heldTools();
  for (const HeldTool& entry : held) {
    // What hears of one of them may push another elsewhere.
    const auto isHere = [&] { return self && holds(*entry.tool, entry.button); };
    const auto isTop = [&] { return getTool(entry.button) == entry.tool; };
    if (isHere() && !isTop())
      endOperation(entry.tool); // what hears of it may take off those above
    if (isHere() && (!isTop() || (entry.button == LeftButton && getOperatingTool())))
      entry.tool->suspend(); // unless it operates itself
  }
}

// A tool may take itself off its stack, or push another one, when its operation ends. Itself only afterwards.
std::shared_ptr<InteractiveTool> CmdsViewController::popTool(EToolActivationButton button) {
  auto top = getTool(button);
  if (!top)
    return {};
  const QPointer<BaseViewController> self(this);
  const QScopedValueRollback moves(top->m_moves, true);
  bringToRest(top);
  if (self)
    keepToolsWaiting(); // what is active below, as in a reset, would not tell that it is resumed
  if (!self || !holds(*top))
    return top;
  if (getTool(button) == top)
    ToolStack::popTool(button);
  else
    takeToolOff(button, top);
  if (self)
    keepToolsWaiting(); // while a tool of another button operates
  return top;
}

// The tools that others hold are left as if they had been popped. Nobody finds out any more who holds them.
void CmdsViewController::releaseTools() {
  const auto held = heldTools();
  for (const HeldTool& entry : held)
    entry.tool->m_moves = true;
  for (const HeldTool& entry : held) {
    bringToRest(entry.tool);
    takeToolOff(entry.button, entry.tool);
    entry.tool->m_moves = false;
  }
}

void CmdsViewController::showIdleCursor(const InteractiveTool* tool) {
  if (isPrimary(tool))
    d->cursors.show(*tool, ViewCursors::Idle, tool->getIdleCursor());
}

void CmdsViewController::takeIdleCursorAway(const InteractiveTool* tool) {
  if (isPrimary(tool))
    d->cursors.takeAway(*tool, ViewCursors::Idle);
}

void CmdsViewController::idleCursorChanged(InteractiveTool& tool) {
  d->cursors.change(tool, ViewCursors::Idle, tool.getIdleCursor());
}

void CmdsViewController::toolActivated(InteractiveTool* tool) { showIdleCursor(tool); }

void CmdsViewController::toolResumed(InteractiveTool* tool) { showIdleCursor(tool); }

void CmdsViewController::toolDeactivated(InteractiveTool* tool) { takeIdleCursorAway(tool); }

void CmdsViewController::toolSuspended(InteractiveTool* tool) { takeIdleCursorAway(tool); }

// The cursor comes first: the reports that follow may end the operation again. A tool that was released in
// its own handler still reports: nobody would end what it begins.
void CmdsViewController::toolBeganOperating(InteractiveTool* tool) {
  if (!tool || !holds(*tool))
    return;
  const QPointer<BaseViewController> self(this);
  d->cursors.show(*tool, ViewCursors::Operating, tool->getOperatingCursor());
  const auto held = heldTools();
  for (const HeldTool& other : held) {
    if (other.tool.get() != tool)
      endOperation(other.tool);
  }
  if (self && tool->isOperating()) // what ended the others may have ended it, too
    ToolStack::toolBeganOperating(tool);
}

void CmdsViewController::toolEndedOperating(InteractiveTool* tool) {
  if (!tool || !holds(*tool))
    return;
  d->cursors.takeAway(*tool, ViewCursors::Operating);
  const QPointer<BaseViewController> self(this);
  ToolStack::toolEndedOperating(tool);
  if (self)
    keepToolsWaiting();
}

void CmdsViewController::toolCursorChange(InteractiveTool* tool) {
  if (!tool || !holds(*tool) || d->cursors.change(*tool, ViewCursors::Operating, tool->getOperatingCursor()))
    return;
  if (BaseView* const view = getView())
    view->setCursor(tool->getOperatingCursor());
}

} // namespace Vela::UiBase
