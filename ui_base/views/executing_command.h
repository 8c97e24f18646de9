// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <vector>

namespace Vela::UiBase {

class CommandBase;
class ViewResponder;

/// The commands that are executing now and take the view's input, of which the one that began last is offered
/// it first. When it ends, the one that began before steps in. One that only runs steps in while there is
/// none.
class ExecutingCommand {
public:
  /// The command to offer input to, kept alive by the reference; empty when there is none.
  std::shared_ptr<ViewResponder> responder() const;
  /// False when nothing is executing that takes input.
  bool takesInput() const { return !m_entries.empty(); }

  /// @return whether the command takes the view's input.
  bool began(CommandBase& command);
  void ended(const CommandBase& command);
  void beganExecuting(CommandBase& command);
  void endedExecuting(const CommandBase& command);
  void forget(const CommandBase& command);

private:
  enum Cause { Began, Runs };
  struct Entry {
    std::weak_ptr<CommandBase> command;
    ViewResponder* responder; // the same object
    Cause cause;
  };

  static Entry entryFor(CommandBase& command, Cause cause);
  void removeLast(const CommandBase& command, Cause cause);

  std::vector<Entry> m_entries; // the one to offer input to is the last
};

} // namespace Vela::UiBase
