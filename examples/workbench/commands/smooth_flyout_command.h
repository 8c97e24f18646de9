// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/commands/flyout_command.h>
#include <workbench/commands/mesh_user.h>
#include <workbench/latest_task.h>
#include <workbench/mesh_edit.h>
#include <workbench/mesh_ops/smooth.h>

#include <QPointer>

namespace Workbench {

class SmoothPanel;

/// Smooths the mesh, or what of it is selected, by the values of a flyout. While the flyout is open the view
/// shows how the mesh would become; the document knows nothing of it until the values are applied, which is
/// one step and closes the flyout. Closed in any other way it leaves no trace.
class SmoothFlyoutCommand : public Vela::UiBase::FlyoutCommand, public MeshUser {
  Q_OBJECT
  COMMAND_ID(SmoothFlyoutCommand)

public:
  explicit SmoothFlyoutCommand(MeshViewController* controller);
  ~SmoothFlyoutCommand() override;

  /// The values of the panel. With given ones it is applied without its panel.
  QVariantMap inputs() const override;
  bool setInputs(const QVariantMap& inputs) override;
  bool needsInputs() const override;

  QString obstacle() const override;
  bool locksMesh() const override;
  /// Stops what is being applied, or else closes the flyout.
  void cancel() override;
  bool onExecuteAsync(bool checked) override;

public Q_SLOTS:
  bool onExecute(bool checked = false) override;
  void onBegin() override;
  void onFinalize() override;
  void onESCKeyReleased() override;

protected:
  /// The commands that would change the mesh are disabled.
  Vela::UiBase::CommandContext getBeginCommandContext() override;
  Vela::UiBase::CommandContext getExecutionCommandContext() override;

private:
  Vela::UiBase::FlyoutBase* makeFlyout();
  void updatePreview();
  void clearPreview();
  void onMeshChanged();
  SmoothOptions options() const;

  QPointer<SmoothPanel> m_panel; // of the flyout, once that is made
  MeshEdit m_edit;
  LatestTask m_preview;
  std::optional<SmoothOptions> m_given; // for the next run, in place of the panel's
  SmoothOptions m_applying;             // of the run
  bool m_applied = false;
};

} // namespace Workbench
