// SPDX-License-Identifier: MIT
#pragma once

#include <QHash>
#include <QList>
#include <QString>

#include <atomic>
#include <memory>

namespace Vela::UiBase {

class CommandBag;
class CommandBase;
class CommandGroup;

/// Finds commands in a bag and in the groups below it at the cost of one hash look-up, however many groups
/// there are. It is made anew when a bag has changed, but not before the look-ups in between, which ask group
/// by group, have cost about as much as making it: so adding and finding in turns stays cheap.
///
/// Groups of an application may look for commands in other places than their bags. They are asked when their
/// turn comes, before what stands in later groups.
class CommandIndex {
public:
  struct Found {
    CommandBase* command = nullptr;
    const std::shared_ptr<CommandBase>* owner = nullptr; // null when not known

    std::shared_ptr<CommandBase> lock() const;
  };

  struct Listed {
    QString id;
    Found found;
  };

  /// @p root is always the same bag. What is found counts until a bag changes.
  Found find(const CommandBag& root, const QString& id);

  /// What look-ups find without asking groups, in order of identifiers. It counts while isListCurrent(), and
  /// is made anew, like the index, when as many commands were wanted since as it had.
  const QList<Listed>& list(const CommandBag& root, qsizetype wanted);
  const QList<Listed>& list() const noexcept { return m_list; }
  bool isListCurrent() const noexcept { return m_listRevision == revision(); }

  /// Every bag tells of a change before it happens.
  static void bagChanges() noexcept;

private:
  struct Entry {
    Found found;
    qsizetype turn; // of the group of the root it was found in; -1 for the root itself
  };
  struct Asked {
    CommandGroup* group; // one of the root's, or it holds one, that looks elsewhere
    qsizetype turn;
  };

  /// Counts the changes of all bags.
  static quint64 revision() noexcept { return s_changes.load(std::memory_order_relaxed); }
  static Found findDirectly(const CommandBag& bag, const QString& id);
  static Found ask(CommandGroup& group, const QString& id);
  bool makeAnew(const CommandBag& root);
  void add(const CommandBag& bag, qsizetype turn);
  void enlist(const CommandBag& bag);

  QHash<QString, Entry> m_first;
  QList<Asked> m_asked;
  quint64 m_revision = 0;     // when the index was made
  qsizetype m_askedSince = 0; // groups
  QList<Listed> m_list;
  quint64 m_listRevision = 0;
  qsizetype m_wantedSince = 0;

  inline static std::atomic<quint64> s_changes = 1;
};

} // namespace Vela::UiBase
