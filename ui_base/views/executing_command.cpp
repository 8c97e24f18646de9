// SPDX-License-Identifier: MIT
#include "executing_command.h"

#include "view_responder.h"

#include <ui_base/commands/command_base.h>

namespace Vela::UiBase {

std::shared_ptr<ViewResponder> ExecutingCommand::responder() const {
  if (!m_responder)
    return {};
  auto command = m_command.lock();
  return command ? std::shared_ptr<ViewResponder>(std::move(command), m_responder) : nullptr;
}

void ExecutingCommand::set(CommandBase& command, bool onlyRuns) {
  m_command = command.sharedOrEmpty();
  m_responder = m_command.expired() ? nullptr : dynamic_cast<ViewResponder*>(&command);
  m_onlyRuns = onlyRuns;
}

bool ExecutingCommand::is(const CommandBase& command) const { return m_command.lock().get() == &command; }

void ExecutingCommand::forget(const CommandBase& command) {
  if (!is(command))
    return;
  m_command.reset();
  m_responder = nullptr;
}

void ExecutingCommand::began(CommandBase& command) { set(command, false); }

void ExecutingCommand::ended(const CommandBase& command) { forget(command); }

void ExecutingCommand::beganExecuting(CommandBase& command) {
  if (m_command.expired())
    set(command, true);
}

void ExecutingCommand::endedExecuting(const CommandBase& command) {
  if (m_onlyRuns)
    forget(command);
}

} // namespace Vela::UiBase
