// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

namespace Vela::UiBase {

class CommandBase;
class ViewResponder;

/// The command that is executing now, and so is offered the view's input first if it is a ViewResponder.
/// A command that began stays until it ended; one that only runs steps in while there is none.
class ExecutingCommand {
public:
  /// The command to offer input to, kept alive by the reference; empty when there is none that takes input.
  std::shared_ptr<ViewResponder> responder() const;
  /// Whether a command has begun that takes the view's input.
  bool takesInput() const { return m_responder && !m_command.expired(); }

  void began(CommandBase& command);
  void ended(const CommandBase& command);
  void beganExecuting(CommandBase& command);
  void endedExecuting(const CommandBase& command);
  void forget(const CommandBase& command);

private:
  void set(CommandBase& command, bool onlyRuns);
  bool is(const CommandBase& command) const;

  std::weak_ptr<CommandBase> m_command;
  ViewResponder* m_responder = nullptr; // the same object, or null when it takes no input
  bool m_onlyRuns = false;
};

} // namespace Vela::UiBase
