// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QTimer>

namespace Vela::UiBase {

/// A single-shot timer that can be paused and keeps the time it has left.
class Countdown : public QObject {
  Q_OBJECT

public:
  explicit Countdown(QObject* parent = nullptr);

  /// Begins anew; finished() comes after `milliseconds` that were not paused. Keeps the paused state.
  void start(int milliseconds);
  /// Forgets the time; finished() does not come.
  void stop();
  void setPaused(bool paused);
  bool isRunning() const { return m_running; }
  /// Milliseconds left, at least 0; 0 when not running.
  int remaining() const;

Q_SIGNALS:
  void finished();

private:
  void onTimeout();

  QTimer m_timer;
  int m_left = 0;
  bool m_running = false;
  bool m_paused = false;
};

} // namespace Vela::UiBase
