// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/core/shared_object.h>
#include <ui_base/core/tool_state_protocol.h>
#include <ui_base/tools/tool_activation_button.h>

#include <QList>

#include <memory>

namespace Vela::UiBase {

class InteractiveTool;
class ToolStack;
class ToolStackPrivate;

} // namespace Vela::UiBase

extern template class UI_BASE_EXPORT Taren::Objects::SharedObject<Vela::UiBase::ToolStack>;

namespace Vela::UiBase {

/// A tool and the button on whose stack it lies.
struct HeldTool {
  EToolActivationButton button = NoButton;
  std::shared_ptr<InteractiveTool> tool;
};

/// The interactive tools of a view: one stack of them for each mouse button. Only the top tool of a stack
/// is live; pushing a tool suspends the one below it, popping resumes it. While a tool of another button
/// operates, the top of the LeftButton stack is kept suspended; the other stacks are never suspended for
/// its sake.
///
/// A shared object, which must be shared before a tool is pushed: make it with
/// Taren::Objects::createShared<ToolStack>(), or use a CmdsViewController, which is one. It owns its tools
/// jointly with whoever else holds them, and is the delegate of each. Main thread only.
///
/// @code
/// stack->pushTool(RightButton, std::make_shared<OrbitTool>(view));
/// stack->pushTool(LeftButton, std::make_shared<PickTool>(view));
/// stack->pushTool(LeftButton, std::make_shared<MeasureTool>(view));   // PickTool is suspended…
/// stack->popTool(LeftButton);                                         // …and active again
/// @endcode
class UI_BASE_EXPORT ToolStack : public ToolStateProtocol,
                                 public virtual Taren::Objects::SharedObject<ToolStack> {
public:
  ToolStack();
  /// Releases the tools like clearTools(). A tool that outlives its stack is best popped before.
  ~ToolStack() override;
  ToolStack(const ToolStack&) = delete;
  ToolStack& operator=(const ToolStack&) = delete;

  void toolBeganOperating(InteractiveTool* tool) override;
  void toolEndedOperating(InteractiveTool* tool) override;

  /// Releases all tools; they are not deactivated.
  virtual void clearTools();
  /// Puts a tool on top of a button's stack and activates it. Does nothing for an empty pointer.
  /// @throws std::bad_weak_ptr when the stack is not shared.
  virtual void pushTool(EToolActivationButton button, std::shared_ptr<InteractiveTool> tool);
  /// Deactivates the top tool of a button and hands it back, without a delegate; empty when there is none.
  /// A tool that operates or is suspended when it is popped stays so.
  virtual std::shared_ptr<InteractiveTool> popTool(EToolActivationButton button);
  /// The top tool of a button, or empty.
  virtual std::shared_ptr<InteractiveTool> getTool(EToolActivationButton button);
  /// The tool that operates, among the tops of the stacks in ascending order of their buttons; or empty.
  virtual std::shared_ptr<InteractiveTool> getOperatingTool() const;

  /// All tools in ascending order of their buttons, those of one button from the bottom of the stack to its
  /// top: for a developer's view of what a stack holds.
  QList<HeldTool> heldTools() const;
  /// Whether the tool is on the stack of any button.
  bool holds(const InteractiveTool& tool) const;
  /// Whether the tool is on the stack of this button.
  bool holds(const InteractiveTool& tool, EToolActivationButton button) const;

  /// Makes every tool that does not operate tell its state afresh, one after another, so that what follows
  /// their reports is brought back in step.
  void resetTools();

protected:
  /// A tool that reports to the stack has another idle cursor now; not called while it is inactive or
  /// suspended.
  virtual void idleCursorChanged(InteractiveTool& tool);
  /// Takes a tool off its stack wherever it lies there, and leaves it without a delegate.
  void takeToolOff(EToolActivationButton button, const std::shared_ptr<InteractiveTool>& tool);

private:
  friend class InteractiveTool; // tells of its idle cursor

  const std::shared_ptr<ToolStackPrivate> d; // outlives the stack where a report ends it
};

} // namespace Vela::UiBase
