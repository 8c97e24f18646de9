// SPDX-License-Identifier: MIT
#pragma once

#include <workbench/commands/workbench_command.h>

#include <QPointer>

namespace Workbench {

class PlacementOverlay;

/// Shows or hides the overlay that tells how the last popup was placed.
class PlacementOverlayCommand : public WorkbenchCommand {
  Q_OBJECT
  COMMAND_ID(PlacementOverlayCommand)

public:
  /// Makes the overlay, on the window of the controller's view, which owns it.
  explicit PlacementOverlayCommand(MeshViewController* controller);
  ~PlacementOverlayCommand() override;

  /// Null when the window is gone.
  PlacementOverlay* overlay() const;

  void setCommandState(const Vela::UiBase::CommandState& state) override;
  bool onExecuteAsync(bool checked) override;

private:
  QPointer<PlacementOverlay> m_overlay;
};

/// Prints to standard output how the last popup was placed.
class PrintPlacementCommand : public WorkbenchCommand {
  Q_OBJECT
  COMMAND_ID(PrintPlacementCommand)

public:
  explicit PrintPlacementCommand(MeshViewController* controller);

  bool onExecuteAsync(bool checked) override;
};

} // namespace Workbench
