// SPDX-License-Identifier: MIT
#include "countdown.h"

#include <algorithm>

namespace Vela::UiBase {

Countdown::Countdown(QObject* parent) : QObject(parent) {
  m_timer.setSingleShot(true);
  connect(&m_timer, &QTimer::timeout, this, &Countdown::onTimeout);
}

void Countdown::start(int milliseconds) {
  m_left = std::max(0, milliseconds);
  m_running = true;
  if (!m_paused)
    m_timer.start(m_left);
}

void Countdown::stop() {
  m_timer.stop();
  m_running = false;
}

void Countdown::setPaused(bool paused) {
  if (paused == m_paused)
    return;
  if (paused)
    m_left = remaining();
  m_paused = paused;
  if (paused)
    m_timer.stop();
  else if (m_running)
    m_timer.start(m_left);
}

int Countdown::remaining() const {
  if (!m_running)
    return 0;
  return m_timer.isActive() ? m_timer.remainingTime() : m_left;
}

void Countdown::onTimeout() {
  m_running = false;
  Q_EMIT finished();
}

} // namespace Vela::UiBase
