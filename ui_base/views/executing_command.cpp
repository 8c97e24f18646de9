// SPDX-License-Identifier: MIT
#include "executing_command.h"

#include "view_responder.h"

#include <ui_base/commands/command_base.h>

#include <algorithm>

namespace Vela::UiBase {

std::shared_ptr<ViewResponder> ExecutingCommand::responder() const {
  for (auto entry = m_entries.rbegin(); entry != m_entries.rend(); ++entry) {
    if (auto command = entry->command.lock())
      return {std::move(command), entry->responder};
  }
  return {};
}

ExecutingCommand::Entry ExecutingCommand::entryFor(CommandBase& command, Cause cause) {
  auto shared = command.sharedOrEmpty();
  return {shared, shared ? dynamic_cast<ViewResponder*>(&command) : nullptr, cause};
}

void ExecutingCommand::removeLast(const CommandBase& command, Cause cause) {
  const auto found = std::find_if(m_entries.rbegin(), m_entries.rend(), [&](const Entry& entry) {
    return entry.cause == cause && entry.command.lock().get() == &command;
  });
  if (found != m_entries.rend())
    m_entries.erase(std::prev(found.base()));
}

void ExecutingCommand::forget(const CommandBase& command) {
  std::erase_if(m_entries, [&](const Entry& entry) {
    const auto held = entry.command.lock();
    return !held || held.get() == &command;
  });
}

bool ExecutingCommand::began(CommandBase& command) {
  removeLast(command, Began);
  const Entry entry = entryFor(command, Began);
  if (entry.responder)
    m_entries.push_back(entry);
  return entry.responder;
}

void ExecutingCommand::ended(const CommandBase& command) { removeLast(command, Began); }

void ExecutingCommand::beganExecuting(CommandBase& command) {
  const Entry entry = entryFor(command, Runs);
  if (entry.responder && !responder())
    m_entries.push_back(entry);
}

void ExecutingCommand::endedExecuting(const CommandBase& command) { removeLast(command, Runs); }

} // namespace Vela::UiBase
