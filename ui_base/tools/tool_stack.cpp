// SPDX-License-Identifier: MIT
#include "tool_stack.h"

#include "interactive_tool.h"

#include <algorithm>
#include <utility>
#include <vector>

template class Taren::Objects::SharedObject<Vela::UiBase::ToolStack>;

namespace Vela::UiBase {

class ToolStackPrivate {
public:
  using Stack = std::vector<std::shared_ptr<InteractiveTool>>; // the top is at the back

  // In the order of the buttons. A list, as every move of the mouse goes through it.
  std::vector<std::pair<EToolActivationButton, Stack>> tools;
  bool alive = true;

  Stack& stackOf(EToolActivationButton button) {
    const auto place = std::find_if(tools.begin(), tools.end(),
                                    [button](const auto& entry) { return entry.first >= button; });
    if (place != tools.end() && place->first == button)
      return place->second;
    return tools.insert(place, {button, Stack()})->second;
  }

  const Stack* find(EToolActivationButton button) const {
    const auto found = std::find_if(tools.begin(), tools.end(),
                                    [button](const auto& entry) { return entry.first == button; });
    return found == tools.end() ? nullptr : &found->second;
  }

  // Observers of its reports may have pushed another one over it, or emptied the stack.
  void remove(EToolActivationButton button, const std::shared_ptr<InteractiveTool>& tool) {
    Stack& stack = stackOf(button);
    const auto found = std::find(stack.rbegin(), stack.rend(), tool);
    if (found != stack.rend())
      stack.erase(std::prev(found.base()));
  }

  std::shared_ptr<InteractiveTool> top(EToolActivationButton button) const {
    const Stack* const stack = find(button);
    return !stack || stack->empty() ? nullptr : stack->back();
  }

  bool holds(EToolActivationButton button, const InteractiveTool& tool) const {
    const Stack* const stack = find(button);
    return stack && std::any_of(stack->begin(), stack->end(),
                                [&tool](const auto& held) { return held.get() == &tool; });
  }

  std::shared_ptr<InteractiveTool> operating() const {
    for (const auto& [button, stack] : tools) {
      if (!stack.empty() && stack.back()->isOperating())
        return stack.back();
    }
    return {};
  }

  // What hears of it may push another one over it, take it off and push it elsewhere, and begin and end
  // operations.
  void reset(EToolActivationButton button, const std::shared_ptr<InteractiveTool>& tool) const {
    const bool wasSuspended = tool->isSuspended();
    const bool waits = wasSuspended && top(button) == tool; // for one of another button
    if (!holds(button, *tool) || (!wasSuspended && !tool->isActive()))
      return;
    const auto before = operating();
    if (wasSuspended)
      tool->resume();
    if (holds(button, *tool))
      tool->deactivate();
    if (holds(button, *tool))
      tool->activate();
    if (!holds(button, *tool))
      return;
    const auto after = operating();
    const bool waitsNow = after == before ? waits : button == LeftButton && after != nullptr;
    if (waitsNow || top(button) != tool)
      tool->suspend();
  }

  // What hears of a suspension may push another tool, which is suspended in its turn.
  void suspendTop(EToolActivationButton button) const {
    std::shared_ptr<InteractiveTool> suspended;
    for (auto next = top(button); next != suspended; next = top(button)) {
      suspended = next;
      if (suspended)
        suspended->suspend();
    }
  }
};

ToolStack::ToolStack() : d(std::make_shared<ToolStackPrivate>()) {}

ToolStack::~ToolStack() {
  beginDestruction();
  d->alive = false;
  ToolStack::clearTools();
}

void ToolStack::toolBeganOperating(InteractiveTool* tool) {
  const auto primary = d->top(LeftButton);
  if (primary && primary.get() != tool)
    primary->suspend();
}

void ToolStack::toolEndedOperating(InteractiveTool* tool) {
  const auto primary = d->top(LeftButton);
  if (primary && primary.get() != tool)
    primary->resume();
}

void ToolStack::clearTools() {
  const auto released = std::exchange(d->tools, {}); // a tool that dies finds the stack empty
}

// NOLINTNEXTLINE(performance-unnecessary-value-param): it lives while it is told, whoever lets go of it
void ToolStack::pushTool(EToolActivationButton button, std::shared_ptr<InteractiveTool> tool) {
  if (!tool)
    return;
  const std::shared_ptr<ToolStack> self = shared_from_this();
  const auto data = d;
  data->suspendTop(button);
  if (!data->alive)
    return;
  data->stackOf(button).push_back(tool);
  tool->setDelegate(self, false);
  tool->activate();
}

std::shared_ptr<InteractiveTool> ToolStack::popTool(EToolActivationButton button) {
  auto tool = d->top(button);
  if (!tool)
    return {};
  const std::shared_ptr<ToolStack> self = sharedOrEmpty(); // an observer of the reports may let go of it
  const auto data = d;
  tool->deactivate();
  data->remove(button, tool);
  if (const auto below = data->top(button))
    below->resume();
  tool->setDelegate(nullptr, false);
  return tool;
}

void ToolStack::takeToolOff(EToolActivationButton button, const std::shared_ptr<InteractiveTool>& tool) {
  d->remove(button, tool);
  tool->setDelegate(nullptr, false);
}

std::shared_ptr<InteractiveTool> ToolStack::getTool(EToolActivationButton button) { return d->top(button); }

std::shared_ptr<InteractiveTool> ToolStack::getOperatingTool() const { return d->operating(); }

QList<HeldTool> ToolStack::heldTools() const {
  QList<HeldTool> held;
  for (const auto& [button, stack] : d->tools) {
    for (const auto& tool : stack)
      held.append({button, tool});
  }
  return held;
}

bool ToolStack::holds(const InteractiveTool& tool) const {
  return std::any_of(d->tools.begin(), d->tools.end(),
                     [&](const auto& entry) { return d->holds(entry.first, tool); });
}

bool ToolStack::holds(const InteractiveTool& tool, EToolActivationButton button) const {
  return d->holds(button, tool);
}

void ToolStack::idleCursorChanged(InteractiveTool&) {}

void ToolStack::resetTools() {
  const auto data = d;
  const auto tools = data->tools; // a copy: what the reports reach may push and pop
  for (const auto& [button, stack] : tools) {
    for (auto tool = stack.rbegin(); tool != stack.rend(); ++tool)
      data->reset(button, *tool);
  }
}

} // namespace Vela::UiBase
