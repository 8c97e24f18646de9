// SPDX-License-Identifier: MIT
#pragma once

#include <workbench/commands/workbench_command.h>
#include <workbench/mesh.h>
#include <workbench/mesh_ops/progress.h>
#include <workbench/mesh_ops/triangle_selection.h>

#include <QPointer>
#include <QTimer>

#include <optional>
#include <stop_token>

namespace Workbench {

class ProgressContent;

/// The base of commands that make another mesh of the one shown, on a thread of the dispatcher.
///
/// Meanwhile the mesh cannot be edited or replaced, and a notification over the view tells how far the work
/// is and offers to cancel it. The result is a step of the document that can be undone. Cancelled, or failed,
/// the mesh stays as it is.
class MeshOperationCommand : public WorkbenchCommand {
  Q_OBJECT

public:
  explicit MeshOperationCommand(MeshViewController* controller);

  bool isRunning() const noexcept { return m_run.has_value(); }
  /// Ends the work as soon as it looks.
  void cancel() override;

  bool isAvailable() const override;
  bool locksMesh() const override;
  bool onExecuteAsync(bool checked) override;

public Q_SLOTS:
  bool onExecute(bool checked = false) override;

protected:
  /// The work; called on a thread of the dispatcher.
  virtual Mesh work(const Mesh& mesh, const TriangleSelection& selection, const Progress& progress) const = 0;
  /// What is shown during the work, "Smoothing".
  virtual QString workingText() const = 0;
  /// What is shown afterwards.
  virtual QString doneText(const Mesh& before, const Mesh& after) const = 0;

  Vela::UiBase::CommandContext getExecutionCommandContext() override;

private:
  struct Run {
    Mesh mesh;
    TriangleSelection selection;
    std::stop_source stop;
  };

  void showProgress();
  void setProgress(double fraction);
  void finish(const std::optional<Mesh>& result, bool cancelled);
  void tell(const QString& message);

  std::optional<Run> m_run; // left alone while the work lasts
  QTimer m_patience;        // what is done soon needs no notification
  QPointer<ProgressContent> m_progress;
};

} // namespace Workbench
