// SPDX-License-Identifier: MIT
#include "context_walk.h"

#include <utility>

namespace Vela::UiBase {

namespace {

// What has to be named of the list, so that passing over the rest costs less than look-ups.
constexpr qsizetype listedPerNamed = 4;

// An identifier is mostly the very string that its command gave.
bool isSame(const QString& a, const QString& b) {
  return (a.constData() == b.constData() && a.size() == b.size()) || a == b;
}

} // namespace

thread_local ContextWalk* ContextWalk::s_innermost = nullptr;

ContextWalk::ContextWalk(CommandIndex& index, const CommandBag& root, qsizetype length)
    : m_index(index),
      m_root(root),
      m_isAlongList(index.list(root, length).size() <= length * listedPerNamed),
      m_outer(std::exchange(s_innermost, this)) {}

ContextWalk::~ContextWalk() { s_innermost = m_outer; }

CommandBase* ContextWalk::next(const QString& id) {
  const CommandIndex::Found found = find(id);
  m_owner = found.owner;
  if (m_held || (found.command && !m_owner))
    m_held = m_owner ? nullptr : found.lock();
  return found.command;
}

CommandIndex::Found ContextWalk::find(const QString& id) {
  if (m_isAlongList && m_index.isListCurrent()) {
    const QList<CommandIndex::Listed>& list = m_index.list();
    while (m_position < list.size() && !isSame(list[m_position].id, id) && list[m_position].id < id)
      ++m_position;
    if (m_position < list.size() && isSame(list[m_position].id, id))
      return list[m_position++].found;
  }
  return m_index.find(m_root, id);
}

void ContextWalk::ownersMayLetGo() noexcept {
  for (ContextWalk* walk = s_innermost; walk; walk = walk->m_outer) {
    if (const auto* const owner = std::exchange(walk->m_owner, nullptr))
      walk->m_held = *owner;
  }
}

} // namespace Vela::UiBase
