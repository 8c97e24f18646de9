// SPDX-License-Identifier: MIT
#include "notification_queue.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace Vela::UiBase {

namespace {

bool isSame(const NotificationEntry& a, const NotificationEntry& b) {
  const auto actionText = [](const NotificationEntry& entry) {
    return entry.action ? entry.action->text() : QString();
  };
  return !a.hasContent && !b.hasContent && a.message == b.message && a.severity == b.severity &&
         a.closable == b.closable && a.receiver == b.receiver && a.member == b.member &&
         actionText(a) == actionText(b);
}

bool isReplacedBy(const NotificationEntry& shown, const NotificationEntry& next) {
  if (shown.severity != next.severity)
    return false;
  return shown.severity == NotificationInfo || (shown.isEndless() && !shown.closable);
}

void moveTo(NotificationQueue::Entries& target, NotificationQueue::Entries source) {
  std::move(source.begin(), source.end(), std::back_inserter(target));
}

} // namespace

quint64 NotificationQueue::post(Entry entry, Entries& dropped) {
  if (NotificationEntry* same = findSame(*entry)) {
    same->remainingMs = entry->remainingMs;
    same->fade = entry->fade;
    return same->id;
  }
  const quint64 id = entry->id = ++m_lastId;
  if (entry->severity == NotificationInfo)
    moveTo(dropped, takeWaiting(NotificationInfo));

  if (m_current && isReplacedBy(*m_current, *entry)) {
    dropped.push_back(std::exchange(m_current, std::move(entry)));
  } else if (m_current && entry->severity > m_current->severity) {
    enqueue(std::exchange(m_current, std::move(entry)), true);
  } else {
    enqueue(std::move(entry), false);
    advance();
  }
  trim(dropped);
  return id;
}

bool NotificationQueue::advance() {
  if (m_current || m_waiting.empty())
    return false;
  m_current = std::move(m_waiting.front());
  m_waiting.erase(m_waiting.begin());
  return true;
}

NotificationQueue::Entry NotificationQueue::takeCurrent() { return std::move(m_current); }

NotificationQueue::Entry NotificationQueue::takeWaiting(quint64 id) {
  const auto found = std::ranges::find_if(m_waiting, [id](const Entry& entry) { return entry->id == id; });
  if (found == m_waiting.end())
    return nullptr;
  Entry entry = std::move(*found);
  m_waiting.erase(found);
  return entry;
}

NotificationQueue::Entries NotificationQueue::takeWaiting(ENotificationSeverity severity) {
  const auto rest = std::stable_partition(m_waiting.begin(), m_waiting.end(), [severity](const Entry& entry) {
    return entry->severity != severity;
  });
  Entries taken(std::make_move_iterator(rest), std::make_move_iterator(m_waiting.end()));
  m_waiting.erase(rest, m_waiting.end());
  return taken;
}

NotificationQueue::Entries NotificationQueue::takeAllWaiting() { return std::exchange(m_waiting, {}); }

NotificationEntry* NotificationQueue::findSame(const NotificationEntry& entry) const {
  if (m_current && isSame(*m_current, entry))
    return m_current.get();
  const auto found =
      std::ranges::find_if(m_waiting, [&](const Entry& other) { return isSame(*other, entry); });
  return found == m_waiting.end() ? nullptr : found->get();
}

void NotificationQueue::enqueue(Entry entry, bool firstAmongEquals) {
  const ENotificationSeverity severity = entry->severity;
  const auto place = std::ranges::find_if(m_waiting, [&](const Entry& other) {
    return firstAmongEquals ? other->severity <= severity : other->severity < severity;
  });
  m_waiting.insert(place, std::move(entry));
}

void NotificationQueue::trim(Entries& dropped) {
  while (waitingCount() > m_limit) {
    const ENotificationSeverity least = m_waiting.back()->severity;
    const auto oldest =
        std::ranges::find_if(m_waiting, [least](const Entry& entry) { return entry->severity == least; });
    dropped.push_back(std::move(*oldest));
    m_waiting.erase(oldest);
  }
}

} // namespace Vela::UiBase
