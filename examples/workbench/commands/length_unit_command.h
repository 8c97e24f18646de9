// SPDX-License-Identifier: MIT
#pragma once

#include <qskrccommon/units.h>
#include <workbench/commands/workbench_command.h>

namespace Workbench {

/// Shows measured distances in a unit. One command for each; they stand in an exclusive group.
class LengthUnitCommand : public WorkbenchCommand {
  Q_OBJECT

public:
  LengthUnitCommand(MeshViewController* controller, Vela::Common::ELengthUnit unit,
                    const Vela::UiBase::Text& text);

  static QString idOf(Vela::Common::ELengthUnit unit);
  QString commandId() const override { return idOf(m_unit); }
  Vela::UiBase::CommandState defaultCommandState() override;
  bool onExecuteAsync(bool checked) override;

private:
  Vela::Common::ELengthUnit m_unit;
};

} // namespace Workbench
