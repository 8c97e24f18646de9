// SPDX-License-Identifier: MIT
#pragma once

#include "session_subject.h"

#include <QObject>
#include <QTimer>

namespace Vela::UiBase {

/// Finds out when an application rests: no run of a command is under way, the subject is not busy, and what
/// the main thread had to do is done.
class SessionRest : public QObject {
  Q_OBJECT

public:
  explicit SessionRest(const SessionSubject& subject, QObject* parent = nullptr);

  /// Tells reached() once, later. Begins anew when it waits already.
  void await();
  void cancel();
  bool isAwaited() const { return m_wait != 0; }

Q_SIGNALS:
  void reached();

private:
  void look();
  void turn();

  const SessionSubject& m_subject;
  QTimer m_busy;      // while the subject is
  quint64 m_wait = 0; // of the present wait; 0 is none
  quint64 m_waits = 0;
  int m_turns = 0; // of the event loop without anything under way
};

} // namespace Vela::UiBase
