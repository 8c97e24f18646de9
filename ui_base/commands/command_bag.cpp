// SPDX-License-Identifier: MIT
#include "command_bag.h"

#include "command_base.h"
#include "command_group.h"
#include "command_index.h"
#include "context_walk.h"

#include <algorithm>

namespace Vela::UiBase {

CommandBag::CommandBag() = default;
CommandBag::CommandBag(const CommandBag&) = default;
CommandBag& CommandBag::operator=(const CommandBag& other) {
  if (this == &other)
    return *this;
  CommandIndex::bagChanges();
  // What was held dies when the bag is in order again.
  CommandBag copy(other);
  m_entries.swap(copy.m_entries);
  m_first.swap(copy.m_first);
  m_groups.swap(copy.m_groups);
  m_positions.swap(copy.m_positions);
  return *this;
}
CommandBag::~CommandBag() { ContextWalk::ownersMayLetGo(); }

bool CommandBag::addCommand(const std::shared_ptr<CommandBase>& command) {
  return insertCommand(count(), command);
}

bool CommandBag::addCommand(CommandBase* command) { return addCommand(Taren::Objects::adoptShared(command)); }

bool CommandBag::insertCommand(int position, const std::shared_ptr<CommandBase>& command) {
  if (!command)
    return false;
  const QString id = command->commandId();
  const auto isSame = [&](const Entry& entry) { return entry.command == command && entry.id == id; };
  if (hasCommand(id) && std::any_of(m_entries.begin(), m_entries.end(), isSame))
    return false;

  CommandIndex::bagChanges();
  First& first = m_first[id];
  const int at = std::clamp(position, 0, count());
  const bool appended = at == count();
  m_entries.insert(m_entries.begin() + at, {id, command});
  if (++first.count == 1)
    first.command = command;
  else if (!appended)
    first.command = std::find_if(m_entries.begin(), m_entries.end(), [&id](const Entry& entry) {
                      return entry.id == id;
                    })->command;
  if (!appended)
    m_positions.clear();
  else if (first.count == 1 && !m_positions.isEmpty())
    m_positions.insert(id, at);
  if (auto* const group = dynamic_cast<CommandGroup*>(command.get()); group && appended)
    m_groups.append(group);
  else if (group)
    collectGroups();
  return true;
}

bool CommandBag::removeCommand(const QString& id) {
  if (!hasCommand(id))
    return false;
  remove(std::find_if(m_entries.cbegin(), m_entries.cend(),
                      [&id](const Entry& entry) { return entry.id == id; }));
  return true;
}

bool CommandBag::removeCommand(const CommandBase* command) {
  const auto found = std::find_if(m_entries.cbegin(), m_entries.cend(),
                                  [command](const Entry& entry) { return entry.command.get() == command; });
  if (found == m_entries.cend())
    return false;
  remove(found);
  return true;
}

void CommandBag::remove(Entries::const_iterator entry) {
  CommandIndex::bagChanges();
  const QString id = entry->id;
  const auto command = entry->command; // may be the last reference; released when the bag is in order again
  const auto next = m_entries.erase(entry);
  m_positions.clear();
  First& first = m_first[id];
  if (--first.count == 0)
    m_first.remove(id);
  else if (first.command == command)
    first.command =
        std::find_if(next, m_entries.end(), [&id](const Entry& e) { return e.id == id; })->command;
  if (dynamic_cast<CommandGroup*>(command.get()))
    collectGroups();
}

void CommandBag::clear() {
  CommandIndex::bagChanges();
  m_first.clear();
  m_groups.clear();
  m_positions.clear();
  const Entries released = std::exchange(m_entries, {});
}

void CommandBag::collectGroups() {
  m_groups.clear();
  for (const Entry& entry : m_entries) {
    if (auto* const group = dynamic_cast<CommandGroup*>(entry.command.get()))
      m_groups.append(group);
  }
}

bool CommandBag::contains(const CommandBase* command) const {
  return command && (getCommand(command->commandId()) == command ||
                     std::any_of(m_entries.begin(), m_entries.end(),
                                 [command](const Entry& entry) { return entry.command.get() == command; }));
}

bool CommandBag::hasCommand(const QString& id) const { return m_first.contains(id); }

bool CommandBag::hasCommand(const QString& id, int& index) const {
  index = positionOf(id);
  return index < count();
}

CommandBase* CommandBag::getCommand(const QString& id) const {
  const auto first = m_first.constFind(id);
  return first == m_first.cend() ? nullptr : first->command.get();
}

CommandBase* CommandBag::getCommand(const QString& id, int& index) const {
  index = positionOf(id);
  return commandAt(index);
}

std::shared_ptr<CommandBase> CommandBag::getSharedCommand(const QString& id) const {
  const auto first = m_first.constFind(id);
  return first == m_first.cend() ? nullptr : first->command;
}

int CommandBag::positionOf(const QString& id) const {
  if (m_positions.isEmpty()) {
    for (int i = count() - 1; i >= 0; --i) // backwards, so that the first one of an identifier stays
      m_positions.insert(m_entries[static_cast<std::size_t>(i)].id, i);
  }
  return m_positions.value(id, count());
}

CommandBase* CommandBag::commandAt(int i) const {
  return i >= 0 && i < count() ? m_entries[static_cast<std::size_t>(i)].command.get() : nullptr;
}

std::shared_ptr<CommandBase> CommandBag::sharedCommandAt(int i) const {
  return i >= 0 && i < count() ? m_entries[static_cast<std::size_t>(i)].command : nullptr;
}

} // namespace Vela::UiBase
