// SPDX-License-Identifier: MIT
#pragma once

#include <QSharedData>

#include <algorithm>
#include <utility>
#include <vector>

namespace Taren::Core::detail {

/// A counted list of observers. A snapshot() is one reference on it; who changes the list while a snapshot is
/// out gets a copy, so a snapshot never changes. The list itself needs a lock, its snapshots do not. An empty
/// list holds no memory.
template <class Entry>
class ObserverList {
  struct Data : QSharedData {
    std::vector<Entry> entries;
  };

public:
  class Snapshot {
  public:
    Snapshot() = default;
    bool isEmpty() const noexcept { return !m_data; }
    const Entry* begin() const noexcept { return m_data ? m_data->entries.data() : nullptr; }
    const Entry* end() const noexcept { return m_data ? begin() + m_data->entries.size() : nullptr; }

  private:
    friend class ObserverList;
    explicit Snapshot(const QExplicitlySharedDataPointer<Data>& data) : m_data(data) {}
    QExplicitlySharedDataPointer<Data> m_data;
  };

  /// Whether there is no observer.
  bool isEmpty() const noexcept { return !m_data; }
  /// The observer that was added first; only when there is one.
  const Entry& first() const { return m_data->entries.front(); }
  /// The observers of now, whatever is added or removed later.
  Snapshot snapshot() const { return Snapshot(m_data); }

  /// Adds an observer at the end; snapshots do not change.
  void append(Entry entry) {
    if (!m_data)
      m_data = new Data;
    makeOwn();
    m_data->entries.push_back(std::move(entry));
  }

  /// Removes every entry that @p matches accepts; leaves the list untouched when there is none.
  template <class Predicate>
  void removeIf(Predicate matches) {
    if (!m_data || std::none_of(m_data->entries.begin(), m_data->entries.end(), matches))
      return;
    makeOwn();
    std::erase_if(m_data->entries, matches);
    if (m_data->entries.empty())
      m_data.reset();
  }

  /// Removes all; snapshots keep theirs.
  void clear() { m_data.reset(); }

private:
  // Acquires what the last holder of a snapshot released, before the entries are written.
  void makeOwn() {
    if (m_data->ref.loadAcquire() != 1)
      m_data = new Data(*m_data);
  }

  QExplicitlySharedDataPointer<Data> m_data;
};

} // namespace Taren::Core::detail
