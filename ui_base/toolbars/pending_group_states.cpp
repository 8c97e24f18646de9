// SPDX-License-Identifier: MIT
#include "pending_group_states.h"

#include <QSet>
#include <QtCore/qtsan_impl.h>

#include <algorithm>

namespace Vela::UiBase {

namespace {

/// The thread sanitizer does not see into the lock itself.
class SeenWriteLocker {
public:
  explicit SeenWriteLocker(QReadWriteLock& lock) : m_lock(lock) {
    m_lock.lockForWrite();
    QtTsan::futexAcquire(&m_lock);
  }
  ~SeenWriteLocker() {
    QtTsan::futexRelease(&m_lock);
    m_lock.unlock();
  }
  Q_DISABLE_COPY_MOVE(SeenWriteLocker)

private:
  QReadWriteLock& m_lock;
};

} // namespace

void PendingGroupStates::append(QObject* group, bool began) {
  const SeenWriteLocker locker(m_lock);
  m_states.append({group, began});
}

QList<PendingGroupStates::State> PendingGroupStates::takeLatest() {
  QList<State> states;
  {
    const SeenWriteLocker locker(m_lock);
    states.swap(m_states);
  }
  QList<State> latest;
  QSet<const QObject*> seen;
  for (auto state = states.crbegin(); state != states.crend(); ++state) {
    if (state->group && !seen.contains(state->group)) {
      seen.insert(state->group);
      latest.append(*state);
    }
  }
  std::reverse(latest.begin(), latest.end());
  return latest;
}

} // namespace Vela::UiBase
