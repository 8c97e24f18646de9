// SPDX-License-Identifier: MIT
#pragma once

#include "command_base.h"

#include <QPointer>

namespace Vela::UiBase {

/// What a task holds of a command: a reference, which keeps the command when it is shared, and a guard, which
/// tells when one that is not shared, or was deleted by hand, has died. Only the main thread may go by the
/// guard of a command that is not shared.
class CommandRef {
public:
  explicit CommandRef(CommandBase& command) : m_shared(command.sharedOrEmpty()), m_guard(&command) {}

  /// The command, or null when it has died.
  CommandBase* get() const { return m_guard.data(); }

private:
  std::shared_ptr<CommandBase> m_shared;
  QPointer<CommandBase> m_guard;
};

} // namespace Vela::UiBase
