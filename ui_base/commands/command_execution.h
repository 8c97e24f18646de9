// SPDX-License-Identifier: MIT
#pragma once

#include "command_ref.h"
#include "command_run.h"
#include "context_hold.h"

#include <QString>

#include <atomic>
#include <memory>
#include <optional>

namespace Vela::UiBase {

class CmdMgr;

/// One run of a command, from the first waypoint to the closing steps, which always come, whatever the work
/// or the dispatcher does. Keeps its record.
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
  ERunOutcome outcomeOfWork();
  void workOnWorker();
  void switchWorkspacesOff();
  void close();
  void tellBegan();
  void finish();
  void noteFailure(const std::optional<QString>& failure);
  void reportFailure();
  void recordWaypoint(const char* text) const;
  void endRecord();

  const CommandRef m_command;
  const QString m_className;
  const bool m_checked;
  RunRecord m_record;
  const CommandRun m_run;
  ContextHold m_context;
  std::atomic<WorkspaceSwitch> m_workspaceSwitch{WorkspaceSwitch::Untouched};
  std::optional<QString> m_failure;
};

} // namespace Vela::UiBase
