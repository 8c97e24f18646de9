// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QPointer>
#include <QReadWriteLock>

namespace Vela::UiBase {

/// The beginnings and endings of groups that wait to be applied. They come in on any thread and are taken by
/// the one that applies them.
class PendingGroupStates {
public:
  struct State {
    QPointer<QObject> group; // may be dead when its turn comes
    bool began = false;
  };

  void append(QObject* group, bool began);
  /// Takes everything that waits: of each group the last state, in the order of these.
  QList<State> takeLatest();

private:
  QReadWriteLock m_lock;
  QList<State> m_states;
};

} // namespace Vela::UiBase
