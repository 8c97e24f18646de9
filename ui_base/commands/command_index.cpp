// SPDX-License-Identifier: MIT
#include "command_index.h"

#include "command_group.h"

#include <typeinfo>

namespace Vela::UiBase {

namespace {

// Entering a command costs about as much as asking four groups.
constexpr qsizetype groupsAskedPerCommand = 4;

} // namespace

std::shared_ptr<CommandBase> CommandIndex::Found::lock() const {
  if (owner)
    return *owner;
  return command ? command->sharedOrEmpty() : nullptr;
}

CommandIndex::Found CommandIndex::find(const CommandBag& root, const QString& id) {
  const bool hasGroups = !root.groups().isEmpty();
  if (m_revision == revision() || (hasGroups && makeAnew(root))) {
    if (const auto found = m_first.constFind(id); found != m_first.cend())
      return *found;
    if (m_complete)
      return {};
  } else if (const Found found = findDirectly(root, id); found.command || !hasGroups) {
    return found;
  }
  const QList<CommandGroup*> groups = root.groups();
  for (CommandGroup* const group : groups) {
    ++m_asked;
    if (CommandBase* const command = group->getCommand(id))
      return {command, nullptr};
  }
  return {};
}

CommandIndex::Found CommandIndex::findDirectly(const CommandBag& bag, const QString& id) {
  const auto first = bag.m_first.constFind(id);
  return first == bag.m_first.cend() ? Found() : Found{first->command.get(), &first->command};
}

bool CommandIndex::makeAnew(const CommandBag& root) {
  if (m_asked < m_first.size() * groupsAskedPerCommand)
    return false;
  m_revision = revision();
  m_asked = 0;
  m_complete = true;
  m_first.clear();
  add(root);
  return true;
}

// In the order of look-ups: a bag before the groups in it, of several commands under one identifier the
// first.
void CommandIndex::add(const CommandBag& bag) {
  m_first.reserve(m_first.size() + bag.count());
  for (const auto& [id, command] : bag.m_entries) {
    Found& first = m_first[id];
    if (!first.command)
      first = {command.get(), &command};
  }
  for (const CommandGroup* const group : bag.groups()) {
    const CommandGroup& asked = *group;
    m_complete = m_complete && typeid(asked) == typeid(CommandGroup);
    add(group->commandBag());
  }
}

} // namespace Vela::UiBase
