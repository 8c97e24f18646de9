// SPDX-License-Identifier: MIT
#pragma once

#include "command_index.h"
#include "pending_context.h"

#include <array>

namespace Vela::UiBase {

/// The commands of the next entries of a context, looked up and read together: they stand far apart in
/// memory, and so the processor waits for several at once instead of for one after the other.
class CommandsAhead {
public:
  CommandsAhead(CommandIndex& index, const CommandBag& root, const PendingContext& pending);

  /// 0 only when nothing is pending.
  std::size_t count() const { return m_count; }
  /// What was found for the i-th entry; nothing when it does not count any more, as a bag has changed, other
  /// entries were taken, or nobody holds the command.
  CommandIndex::Found at(std::size_t i, PendingContext::Entries::const_iterator entry) const;

private:
  struct LookedUp {
    PendingContext::Entries::const_iterator entry;
    CommandIndex::Found found;
  };

  std::array<LookedUp, 32> m_lookedUp;
  std::size_t m_count = 0;
  const quint64 m_revision = CommandIndex::revision();
};

} // namespace Vela::UiBase
