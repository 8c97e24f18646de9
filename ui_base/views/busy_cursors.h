// SPDX-License-Identifier: MIT
#pragma once

#include <QHash>

namespace Vela::UiBase {

class CommandBase;

/// Remembers for which commands a busy cursor was set for the application, so that each one set is restored
/// once, whatever became of the command meanwhile.
class BusyCursors {
public:
  BusyCursors() = default;
  ~BusyCursors();
  BusyCursors(const BusyCursors&) = delete;
  BusyCursors& operator=(const BusyCursors&) = delete;

  void set(const CommandBase* command);
  /// Restores one; nothing when none was set for the command.
  void restore(const CommandBase* command);
  void restoreAll(const CommandBase* command);

private:
  QHash<const CommandBase*, int> m_counts; // keys are compared, never followed
};

} // namespace Vela::UiBase
