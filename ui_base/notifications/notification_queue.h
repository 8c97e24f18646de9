// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/notifications/notification_entry.h>

#include <memory>
#include <vector>

namespace Vela::UiBase {

/// Decides which notification is shown and which ones wait. Knows nothing of widgets or time.
///
/// - An info replaces an info, shown or waiting: only the latest state is worth telling.
/// - A more severe entry comes before the waiting ones and takes the place of a less severe one, which waits
///   first among its equals with the time it has left.
/// - Otherwise an entry waits its turn. An endless one that the user cannot close gives way to its equals.
/// - A message that is already shown or waiting is not queued twice; it gets its full time again.
/// - When too many wait, the oldest of the least severe ones is dropped.
class NotificationQueue {
public:
  using Entry = std::unique_ptr<NotificationEntry>;
  using Entries = std::vector<Entry>;

  /// Takes the entry in and returns the identifier it is known by; one that it already had when it repeats
  /// another. Entries that lost their place are moved to `dropped`. There is a current entry afterwards.
  quint64 post(Entry entry, Entries& dropped);

  /// The entry that is shown, or null.
  NotificationEntry* current() const { return m_current.get(); }
  /// Makes the first waiting entry the current one when there is no current one. False when none waits.
  bool advance();
  /// Gives the current entry away.
  Entry takeCurrent();
  /// Gives away the waiting entry with this identifier; null when there is none.
  Entry takeWaiting(quint64 id);
  /// Gives away the waiting entries of this severity.
  Entries takeWaiting(ENotificationSeverity severity);
  /// Gives away all waiting entries.
  Entries takeAllWaiting();

  int waitingCount() const { return static_cast<int>(m_waiting.size()); }
  int limit() const { return m_limit; }
  /// How many entries may wait, at least one. Applies from the next post on.
  void setLimit(int limit) { m_limit = limit < 1 ? 1 : limit; }

private:
  NotificationEntry* findSame(const NotificationEntry& entry) const;
  void enqueue(Entry entry, bool firstAmongEquals);
  void trim(Entries& dropped);

  Entry m_current;
  Entries m_waiting; // falling severity, then order of arrival
  quint64 m_lastId = 0;
  int m_limit = 8;
};

} // namespace Vela::UiBase
