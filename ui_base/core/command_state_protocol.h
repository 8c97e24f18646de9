// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/core/delegator.h>

namespace Vela::UiBase {

class CommandBase;

/// What a command tells its observers. Every callback does nothing by default.
class UI_BASE_EXPORT CommandStateProtocol {
public:
  CommandStateProtocol();
  /// Observers may be copied.
  CommandStateProtocol(const CommandStateProtocol&);
  CommandStateProtocol& operator=(const CommandStateProtocol&);
  virtual ~CommandStateProtocol();

  /// A command that lasts, one with a panel for instance, came into use.
  virtual void commandBegan(CommandBase* command);
  /// It went out of use.
  virtual void commandEnded(CommandBase* command);
  /// The work of a command starts; @p checked is the value it was triggered or toggled with.
  virtual void commandBeganExecuting(CommandBase* command, bool checked);
  /// The work of a command is done. Told by the thread that triggered the command when the work ran there, by
  /// the main thread when it ran on a thread of the dispatcher.
  virtual void commandEndedExecuting(CommandBase* command, bool checked);
};

} // namespace Vela::UiBase

extern template class UI_BASE_EXPORT Taren::Core::Broadcaster<Vela::UiBase::CommandStateProtocol>;
extern template class UI_BASE_EXPORT Taren::Core::Delegator<Vela::UiBase::CommandStateProtocol>;
