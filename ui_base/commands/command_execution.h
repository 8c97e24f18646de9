// SPDX-License-Identifier: MIT
#pragma once

#include "command_ref.h"
#include "context_hold.h"

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
  void holdContext();
  bool work() noexcept;
  void workOnWorker();
  void switchWorkspacesOff();
  void close();
  void tellBegan();
  void finish();
  void noteFailure(const std::optional<QString>& failure);
  void reportFailure();
  void recordWaypoint(const char* text) const;

  const CommandRef m_command;
  const QString m_className;
  const bool m_checked;
  ContextHold m_context;
  std::atomic<WorkspaceSwitch> m_workspaceSwitch{WorkspaceSwitch::Untouched};
  std::optional<QString> m_failure;
};

} // namespace Vela::UiBase
