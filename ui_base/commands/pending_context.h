// SPDX-License-Identifier: MIT
#pragma once

#include "command_context.h"

#include <memory>
#include <utility>
#include <vector>

namespace Vela::UiBase {

class CommandBase;

/// What is left to apply of a context handed over. Its commands are looked up when their turn comes;
/// references are kept only when the registry is emptied before.
class PendingContext {
public:
  using Entries = QMap<QString, CommandState>;

  explicit PendingContext(const CommandContext& context)
      : m_entries(context.get()), m_next(m_entries.cbegin()) {}
  Q_DISABLE_COPY_MOVE(PendingContext)

  /// What is left, in order of identifiers.
  Entries::const_iterator begin() const { return m_next; }
  Entries::const_iterator end() const { return m_entries.cend(); }
  bool isEmpty() const { return m_next == end(); }
  /// Of the whole context.
  qsizetype size() const { return m_entries.size(); }
  /// What is left of a command, Keep in both parts when nothing is.
  CommandState left(const QString& id) const {
    const auto found = m_entries.constFind(id);
    const bool isLeft = found != end() && !isEmpty() && !(found.key() < m_next.key());
    return isLeft ? *found : CommandState(State::Keep, State::Keep);
  }
  /// The next entry, which is not left any more. It stays valid.
  Entries::const_iterator take() { return m_next++; }

  /// Looks up the commands of what is left now, with @p find, and holds them weakly from then on.
  template <class Find>
  void keepCommands(const Find& find) {
    while (!isEmpty()) {
      const auto entry = take();
      m_kept.emplace_back(find(entry.key()), entry.value());
    }
  }
  /// One more command to apply a state to, which is held weakly.
  void keep(const std::shared_ptr<CommandBase>& command, const CommandState& state) {
    m_kept.emplace_back(command, state);
  }
  void applyToKept() const;

  /// Its manager dies; one that was deleted by hand may still be referred to, but not be used.
  void orphan() { m_orphaned = true; }
  bool isOrphaned() const { return m_orphaned; }

private:
  const Entries m_entries;
  Entries::const_iterator m_next;
  bool m_orphaned = false;
  std::vector<std::pair<std::weak_ptr<CommandBase>, CommandState>> m_kept;
};

} // namespace Vela::UiBase
