// SPDX-License-Identifier: MIT
#pragma once

#include <QHash>
#include <QString>

#include <atomic>
#include <memory>

namespace Vela::UiBase {

class CommandBag;
class CommandBase;

/// Finds commands in a bag and in the groups below it at the cost of one hash look-up, however many groups
/// there are. It is made anew when a bag has changed, but not before the look-ups in between, which ask group
/// by group, have cost about as much as making it: so adding and finding in turns stays cheap.
///
/// Groups of an application may look for commands in other places than their bags. Where there are such, they
/// are asked for what the index does not hold.
class CommandIndex {
public:
  struct Found {
    CommandBase* command = nullptr;
    const std::shared_ptr<CommandBase>* owner = nullptr; // null when not known

    std::shared_ptr<CommandBase> lock() const;
  };

  /// @p root is always the same bag. What is found counts until revision() changes.
  Found find(const CommandBag& root, const QString& id);
  /// Counts the changes of all bags, which tell of them before they happen.
  static quint64 revision() noexcept { return s_changes.load(std::memory_order_relaxed); }
  static void bagChanges() noexcept { s_changes.fetch_add(1, std::memory_order_relaxed); }

private:
  static Found findDirectly(const CommandBag& bag, const QString& id);
  bool makeAnew(const CommandBag& root);
  void add(const CommandBag& bag);

  QHash<QString, Found> m_first;
  quint64 m_revision = 0; // when the index was made
  bool m_complete = true; // no group looks elsewhere
  qsizetype m_asked = 0;  // groups asked since the index was made

  inline static std::atomic<quint64> s_changes = 1;
};

} // namespace Vela::UiBase
