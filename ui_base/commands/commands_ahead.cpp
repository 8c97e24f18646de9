// SPDX-License-Identifier: MIT
#include "commands_ahead.h"

#include "command_base.h"

namespace Vela::UiBase {

CommandsAhead::CommandsAhead(CommandIndex& index, const CommandBag& root, const PendingContext& pending) {
  for (auto entry = pending.begin(); entry != pending.end() && m_count < m_lookedUp.size(); ++entry)
    m_lookedUp.at(m_count++) = {entry, index.find(root, entry.key())};
  for (std::size_t i = 0; i < m_count && m_revision == CommandIndex::revision(); ++i) {
    if (const LookedUp& read = m_lookedUp.at(i); read.found.owner)
      static_cast<void>(read.found.command->isEnabled());
  }
}

CommandIndex::Found CommandsAhead::at(std::size_t i, PendingContext::Entries::const_iterator entry) const {
  const LookedUp& ahead = m_lookedUp.at(i);
  const bool counts = m_revision == CommandIndex::revision() && ahead.entry == entry && ahead.found.owner;
  return counts ? ahead.found : CommandIndex::Found();
}

} // namespace Vela::UiBase
