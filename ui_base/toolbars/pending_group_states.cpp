// SPDX-License-Identifier: MIT
#include "pending_group_states.h"

#include <QSet>

#include <algorithm>

namespace Vela::UiBase {

void PendingGroupStates::append(QObject* group, bool began) {
  const QWriteLocker locker(&m_lock);
  m_states.append({group, began});
}

QList<PendingGroupStates::State> PendingGroupStates::takeLatest() {
  QList<State> states;
  {
    const QWriteLocker locker(&m_lock);
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
