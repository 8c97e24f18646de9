// SPDX-License-Identifier: MIT
#pragma once

#include <workbench/commands/workbench_command.h>
#include <workbench/render/render_style.h>

namespace Workbench {

/// Draws the mesh in one of the shadings. One command for each; they stand in an exclusive group.
class ShadingCommand : public WorkbenchCommand {
  Q_OBJECT

public:
  ShadingCommand(MeshViewController* controller, EShading shading);

  static QString idOf(EShading shading);
  QString commandId() const override { return idOf(m_shading); }
  Vela::UiBase::CommandState defaultCommandState() override;
  bool onExecuteAsync(bool checked) override;

private:
  EShading m_shading;
};

} // namespace Workbench
