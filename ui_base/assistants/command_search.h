// SPDX-License-Identifier: MIT
#pragma once

#include "text_match.h"

#include <QList>
#include <QSet>

#include <memory>
#include <vector>

namespace Vela::UiBase {

class CmdMgr;
class CommandBag;
class CommandBase;
class CommandUsage;

/// The commands that a user can look for, prepared for searching, and who answers best to what was typed. A
/// snapshot: collect() again when commands may have come or changed their texts, which prepares only what is
/// new. Keeps no command alive.
class CommandSearch {
public:
  struct Entry {
    std::weak_ptr<CommandBase> command;
    std::weak_ptr<CmdMgr> manager;
    QString source; ///< The text of its action, from which the rest is made.
    QString id;
    QString name;
    QString path; ///< The names of the groups it stands in, the outermost first.
    MatchText title;
    MatchText spelled;  ///< With "ae" for an umlaut and so on; empty where that makes no difference.
    MatchText original; ///< The text before its translation; empty where that makes no difference.
    MatchText context;  ///< The groups, and the words of the identifier.
  };

  /// Adds the commands of a manager, those in its groups included; groups themselves and commands that are
  /// not visible are left out, and so is what is there already.
  void collect(const std::shared_ptr<CmdMgr>& manager);
  /// Begins anew.
  void clear();

  /// The positions of the entries that answer, the best first; used ones before others that answer as well.
  QList<int> find(const QString& typed, const CommandUsage& usage) const;
  const Entry& at(int position) const { return m_entries[static_cast<size_t>(position)]; }

private:
  void collect(const CommandBag& bag, const std::shared_ptr<CmdMgr>& manager, const QString& path);

  Entry entryFor(const std::shared_ptr<CommandBase>& command, const std::shared_ptr<CmdMgr>& manager,
                 const QString& path);

  std::vector<Entry> m_entries;
  std::vector<Entry> m_before; // those of the last time, in the same order if nothing has changed
  QSet<const CommandBase*> m_collected;
};

} // namespace Vela::UiBase
