// SPDX-License-Identifier: MIT
#pragma once

#include <workbench/commands/workbench_command.h>

namespace Workbench {

/// What can be done with the distances that were measured, besides clearing them.
enum EMeasurementAction : int {
  RemoveMeasurement = 0, ///< Forgets the newest.
  CopyMeasurements = 1,  ///< Puts all of them on the clipboard.
};

/// A command for each of them.
class MeasurementCommand : public WorkbenchCommand {
  Q_OBJECT

public:
  MeasurementCommand(MeshViewController* controller, EMeasurementAction action);

  static QString idOf(EMeasurementAction action);
  QString commandId() const override { return idOf(m_action); }
  QString obstacle() const override;
  bool onExecuteAsync(bool checked) override;

private:
  EMeasurementAction m_action;
};

} // namespace Workbench
