// SPDX-License-Identifier: MIT
#pragma once

#include "command_base.h"

#include <QPointer>

namespace Vela::UiBase {

/// What a task holds of a command: a reference when the command is shared, else a guard, which only the main
/// thread may look through.
class CommandRef {
public:
  explicit CommandRef(CommandBase& command) : m_shared(command.sharedOrEmpty()), m_guard(&command) {}

  /// The command, or null when it was not shared and has died.
  CommandBase* get() const { return m_shared ? m_shared.get() : m_guard.data(); }

private:
  std::shared_ptr<CommandBase> m_shared;
  QPointer<CommandBase> m_guard;
};

} // namespace Vela::UiBase
