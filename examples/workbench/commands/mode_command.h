// SPDX-License-Identifier: MIT
#pragma once

#include <workbench/commands/workbench_command.h>
#include <workbench/tools/tool_mode.h>

namespace Workbench {

/// Switches what the left mouse button does. One command for each mode; they stand in an exclusive group.
class ModeCommand : public WorkbenchCommand {
  Q_OBJECT

public:
  ModeCommand(MeshViewController* controller, EToolMode mode);

  static QString idOf(EToolMode mode);
  QString commandId() const override { return idOf(m_mode); }
  Vela::UiBase::CommandState defaultCommandState() override;
  bool onExecuteAsync(bool checked) override;

private:
  EToolMode m_mode;
};

} // namespace Workbench
