// SPDX-License-Identifier: MIT
#include "session_rest.h"

#include <tqm_mesh_kernel/dispatch.h>
#include <ui_base/commands/run_log.h>

#include <QPointer>

namespace Vela::UiBase {

namespace {

// A task may leave an event, and that another task: the end of a run, the layer that ends with it, contexts
// that follow from states. Longer than any such chain; a turn costs next to nothing.
constexpr int quietTurns = 16;
constexpr int busyInterval = 10; // ms

} // namespace

SessionRest::SessionRest(const SessionSubject& subject, QObject* parent)
    : QObject(parent), m_subject(subject) {
  m_busy.setSingleShot(true);
  m_busy.setInterval(busyInterval);
  connect(&m_busy, &QTimer::timeout, this, &SessionRest::look);
  connect(
      &RunLog::Instance(), &RunLog::runEnded, this, [this] { look(); }, Qt::QueuedConnection);
}

void SessionRest::await() {
  m_wait = ++m_waits;
  m_turns = 0;
  turn();
}

void SessionRest::cancel() {
  m_wait = 0;
  m_busy.stop();
}

void SessionRest::look() {
  if (!m_wait || m_busy.isActive())
    return;
  if (!RunLog::Instance().runsUnderway().isEmpty()) {
    m_turns = 0; // the end of the run looks again
  } else if (m_subject.isBusy()) {
    m_turns = 0;
    m_busy.start();
  } else if (++m_turns < quietTurns) {
    turn();
  } else {
    m_wait = 0;
    Q_EMIT reached();
  }
}

// All that the main thread has to do comes first: tasks, then events.
void SessionRest::turn() {
  const auto afterTasks = [self = QPointer(this), wait = m_wait] {
    if (!self)
      return;
    QTimer::singleShot(0, self.data(), [self, wait] {
      if (self && self->m_wait == wait)
        self->look();
    });
  };
  Taren::Core::dispatchAsync(afterTasks, Taren::Core::MainThreadQoS);
}

} // namespace Vela::UiBase
