// SPDX-License-Identifier: MIT
#pragma once

#include "command_ref.h"

#include <ui_base/views/base_view_controller.h>

#include <QPointer>
#include <QString>

#include <memory>
#include <optional>

namespace Vela::UiBase {

/// One run of a command, from the first waypoint to the closing steps, which always come, whatever the work
/// or the dispatcher does.
class CommandExecution : public std::enable_shared_from_this<CommandExecution> {
public:
  CommandExecution(CommandBase& command, bool checked);

  bool run();

private:
  bool runNow();
  bool runLater(Taren::Core::EQualityOfService qos);
  void pushContext();
  void popContext();
  bool work() noexcept;
  void workOnWorker();
  void close();
  void finish();
  void reportFailure();
  void recordWaypoint(const char* text) const;

  const CommandRef m_command;
  const QString m_className;
  const bool m_checked;
  QPointer<BaseViewController> m_contextHolder; // the controller the execution context was pushed on
  bool m_switchedWorkspacesOff = false;
  std::optional<QString> m_failure;
};

} // namespace Vela::UiBase
