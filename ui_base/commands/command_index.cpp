// SPDX-License-Identifier: MIT
#include "command_index.h"

#include "command_group.h"

#include <typeinfo>

namespace Vela::UiBase {

namespace {

// Entering a command costs about as much as asking two groups.
constexpr qsizetype groupsAskedPerCommand = 2;

} // namespace

CommandIndex::Found CommandIndex::find(const CommandBag& root, const QString& id) {
  if (root.groups().isEmpty())
    return {root.getCommand(id), nullptr};
  if (isUpToDate(root)) {
    if (const auto found = m_first.constFind(id); found != m_first.cend())
      return *found;
    if (m_complete)
      return {};
  } else if (CommandBase* const command = root.getCommand(id)) {
    return {command, nullptr};
  }
  const QList<CommandGroup*> groups = root.groups();
  for (CommandGroup* const group : groups) {
    ++m_asked;
    if (CommandBase* const command = group->getCommand(id))
      return {command, nullptr};
  }
  return {};
}

bool CommandIndex::isUpToDate(const CommandBag& root) {
  if (m_revision == CommandBag::revision())
    return true;
  if (m_asked < m_first.size() * groupsAskedPerCommand)
    return false;
  m_revision = CommandBag::revision();
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
