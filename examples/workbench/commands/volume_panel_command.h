// SPDX-License-Identifier: MIT
#pragma once

#include <workbench/commands/workbench_command.h>
#include <workbench/panels/volume_panel.h>

#include <QPointer>

namespace Workbench {

/// Shows or hides how much material printing the mesh takes, and remembers it.
///
/// The panel is the user's way of looking at things: contexts of the view do not switch it.
class VolumePanelCommand : public WorkbenchCommand {
  Q_OBJECT
  COMMAND_ID(VolumePanelCommand)

public:
  explicit VolumePanelCommand(MeshViewController* controller);
  ~VolumePanelCommand() override;

  /// Null until it was shown first, and without a view.
  VolumePanel* panel() const { return m_panel; }

  void setCommandState(const Vela::UiBase::CommandState& state) override;
  bool onExecuteAsync(bool checked) override;

private:
  void showPanel(bool shown);

  QPointer<VolumePanel> m_panel;
};

} // namespace Workbench
