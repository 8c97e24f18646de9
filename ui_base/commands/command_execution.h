// SPDX-License-Identifier: MIT
#pragma once

#include "command_ref.h"

#include <QString>

#include <atomic>
#include <memory>
#include <optional>

namespace Vela::UiBase {

class CmdMgr;

/// One run of a command, from the first waypoint to the closing steps, which always come, whatever the work
/// or the dispatcher does.
class CommandExecution : public std::enable_shared_from_this<CommandExecution> {
public:
  CommandExecution(CommandBase& command, bool checked);

  bool run();

private:
  enum class WorkspaceSwitch : int { Untouched, Off, Closed };

  bool runNow();
  bool runLater(Taren::Core::EQualityOfService qos);
  void pushContext();
  void popContext();
  bool work() noexcept;
  void workOnWorker();
  void switchWorkspacesOff();
  void close();
  void finish();
  void reportFailure();
  void recordWaypoint(const char* text) const;

  const CommandRef m_command;
  const QString m_className;
  const bool m_checked;
  std::weak_ptr<CmdMgr> m_contextHolder; // the manager the execution context was pushed on
  std::atomic<WorkspaceSwitch> m_workspaceSwitch{WorkspaceSwitch::Untouched};
  std::optional<QString> m_failure;
};

} // namespace Vela::UiBase
