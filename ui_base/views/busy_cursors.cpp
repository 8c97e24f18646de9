// SPDX-License-Identifier: MIT
#include "busy_cursors.h"

#include <QGuiApplication>

namespace Vela::UiBase {

BusyCursors::~BusyCursors() {
  while (!m_counts.isEmpty())
    restore(m_counts.cbegin().key());
}

void BusyCursors::set(const CommandBase* command) {
  QGuiApplication::setOverrideCursor(Qt::BusyCursor);
  ++m_counts[command];
}

void BusyCursors::restore(const CommandBase* command) {
  const auto found = m_counts.find(command);
  if (found == m_counts.end())
    return;
  QGuiApplication::restoreOverrideCursor();
  if (--*found == 0)
    m_counts.erase(found);
}

void BusyCursors::restoreAll(const CommandBase* command) {
  while (m_counts.contains(command))
    restore(command);
}

} // namespace Vela::UiBase
