// SPDX-License-Identifier: MIT
#include "command_index.h"

#include "command_group.h"
#include "context_walk.h"

#include <algorithm>
#include <typeinfo>

namespace Vela::UiBase {

namespace {

// Entering a command costs about as much as asking four groups.
constexpr qsizetype groupsAskedPerCommand = 4;

// Only a group of the library itself is known to look into its bag and no farther.
bool looksElsewhere(const CommandGroup& group) {
  if (typeid(group) != typeid(CommandGroup))
    return true;
  const QList<CommandGroup*>& groups = group.commandBag().groups();
  return std::any_of(groups.cbegin(), groups.cend(),
                     [](const CommandGroup* below) { return looksElsewhere(*below); });
}

// In the order of look-ups: a bag before those in it.
template <class Visitor>
void visitBags(const CommandBag& bag, const Visitor& visit) {
  visit(bag);
  for (const CommandGroup* const group : bag.groups())
    visitBags(group->commandBag(), visit);
}

} // namespace

std::shared_ptr<CommandBase> CommandIndex::Found::lock() const {
  if (owner)
    return *owner;
  return command ? command->sharedOrEmpty() : nullptr;
}

void CommandIndex::bagChanges() noexcept {
  s_changes.fetch_add(1, std::memory_order_relaxed);
  ContextWalk::ownersMayLetGo();
}

CommandIndex::Found CommandIndex::find(const CommandBag& root, const QString& id) {
  const bool hasGroups = !root.groups().isEmpty();
  if (m_revision == revision() || (hasGroups && makeAnew(root))) {
    const auto first = m_first.constFind(id);
    const bool stands = first != m_first.cend();
    if (m_asked.isEmpty() || (stands && first->turn < 0))
      return stands ? first->found : Found();
    const Found inBag = stands ? first->found : Found();
    const qsizetype turn = stands ? first->turn : root.groups().size();
    const QList<Asked> asked = m_asked; // a group may change the bags
    for (const Asked& entry : asked) {
      if (entry.turn > turn)
        break;
      if (const Found found = ask(*entry.group, id); found.command)
        return found;
    }
    return m_revision == revision() ? inBag : findDirectly(root, id);
  }
  if (const Found found = findDirectly(root, id); found.command || !hasGroups)
    return found;
  // NOLINTNEXTLINE(performance-unnecessary-copy-initialization): asking a group may change them
  const QList<CommandGroup*> groups = root.groups();
  for (CommandGroup* const group : groups) {
    ++m_askedSince;
    if (const Found found = ask(*group, id); found.command)
      return found;
  }
  return {};
}

CommandIndex::Found CommandIndex::ask(CommandGroup& group, const QString& id) {
  return {group.hasCommand(id) ? group.getCommand(id) : nullptr, nullptr};
}

CommandIndex::Found CommandIndex::findDirectly(const CommandBag& bag, const QString& id) {
  const auto first = bag.m_first.constFind(id);
  return first == bag.m_first.cend() ? Found() : Found{first->command.get(), &first->command};
}

bool CommandIndex::makeAnew(const CommandBag& root) {
  if (m_askedSince < m_first.size() * groupsAskedPerCommand)
    return false;
  m_revision = revision();
  m_askedSince = 0;
  m_asked.clear();
  m_first.clear();
  add(root, -1);
  const QList<CommandGroup*>& groups = root.groups();
  for (qsizetype turn = 0; turn < groups.size(); ++turn) {
    if (looksElsewhere(*groups.at(turn)))
      m_asked.append({groups.at(turn), turn});
    else
      visitBags(groups.at(turn)->commandBag(), [=, this](const CommandBag& bag) { add(bag, turn); });
  }
  return true;
}

// Of several commands under one identifier the first.
void CommandIndex::add(const CommandBag& bag, qsizetype turn) {
  m_first.reserve(m_first.size() + bag.count());
  for (const auto& [id, command] : bag.m_entries) {
    if (!m_first.contains(id))
      m_first.insert(id, {{command.get(), &command}, turn});
  }
}

const QList<CommandIndex::Listed>& CommandIndex::list(const CommandBag& root, qsizetype wanted) {
  if (isListCurrent())
    return m_list;
  m_wantedSince += wanted;
  if (m_wantedSince < m_list.size())
    return m_list;
  m_wantedSince = 0;
  m_listRevision = revision();
  m_list.clear();
  enlist(root);
  for (const CommandGroup* const group : root.groups()) {
    if (looksElsewhere(*group)) // asked before what stands in later groups
      break;
    visitBags(group->commandBag(), [this](const CommandBag& bag) { enlist(bag); });
  }
  const auto isBefore = [](const Listed& a, const Listed& b) { return a.id < b.id; };
  std::stable_sort(m_list.begin(), m_list.end(), isBefore);
  const auto isSame = [](const Listed& a, const Listed& b) { return a.id == b.id; };
  m_list.erase(std::unique(m_list.begin(), m_list.end(), isSame), m_list.end());
  return m_list;
}

void CommandIndex::enlist(const CommandBag& bag) {
  for (const auto& [id, command] : bag.m_entries)
    m_list.append({id, {command.get(), &command}});
}

} // namespace Vela::UiBase
