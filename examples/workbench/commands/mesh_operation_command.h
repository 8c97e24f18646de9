// SPDX-License-Identifier: MIT
#pragma once

#include <workbench/commands/workbench_command.h>
#include <workbench/mesh_edit.h>

namespace Workbench {

/// The base of commands that make another mesh of the one shown at one stroke; see MeshEdit. Meanwhile the
/// mesh cannot be edited or replaced.
class MeshOperationCommand : public WorkbenchCommand {
  Q_OBJECT

public:
  explicit MeshOperationCommand(MeshViewController* controller);

  bool isRunning() const noexcept { return m_edit.isRunning(); }

  QString obstacle() const override;
  bool locksMesh() const override;
  bool onExecuteAsync(bool checked) override;

public Q_SLOTS:
  bool onExecute(bool checked = false) override;

protected:
  /// The work; called on a thread of the dispatcher.
  virtual Mesh work(const Mesh& mesh, const TriangleSelection& selection,
                    const Vela::UiBase::RunProgress& progress) const = 0;
  /// What is shown during the work, "Smoothing".
  virtual QString workingText() const = 0;
  /// What is shown afterwards.
  virtual QString doneText(const Mesh& before, const Mesh& after) const = 0;

  Vela::UiBase::CommandContext getExecutionCommandContext() override;

private:
  MeshEdit m_edit;
};

} // namespace Workbench
