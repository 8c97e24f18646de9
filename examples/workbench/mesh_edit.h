// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/commands/run_progress.h>
#include <ui_base/commands/text.h>
#include <workbench/mesh.h>
#include <workbench/mesh_ops/triangle_selection.h>

#include <QObject>

#include <functional>
#include <memory>
#include <optional>

namespace Vela::UiBase {
class CommandBase;
}

namespace Workbench {

class MeshUser;

/// The work of a command that makes another mesh of the one shown, on a thread of the dispatcher.
///
/// The execution notification of the command tells what is being done, how far it is, and what came of it.
/// The result is a step of the document that can be undone. Cancelled, or failed, the mesh stays as it is.
///
/// @code
/// bool onExecute(bool checked) override {     // on the main thread
///   m_edit.begin(plan());
///   return CommandBase::onExecute(checked);
/// }
/// bool onExecuteAsync(bool) override { return m_edit.run(shared_from_this()); } // on a worker
/// @endcode
class MeshEdit : public QObject {
  Q_OBJECT

public:
  struct Plan {
    Vela::UiBase::Text step; ///< What was done, for a user, as in "Undo %1".
    QString working;         ///< What is shown during the work, "Smoothing".
    /// Called on a thread of the dispatcher.
    std::function<Mesh(const Mesh& mesh, const TriangleSelection& selection,
                       const Vela::UiBase::RunProgress& progress)>
        work;
    /// What is shown afterwards.
    std::function<QString(const Mesh& before, const Mesh& after)> done;
  };

  /// @param command  outlives the object
  /// @param user  the same command
  MeshEdit(Vela::UiBase::CommandBase& command, const MeshUser& user);
  ~MeshEdit() override;

  bool isRunning() const noexcept { return m_run.has_value(); }
  /// Takes the mesh and its selection as they are. There must be a document.
  void begin(Plan plan);
  /// Does the work; for a thread of the dispatcher.
  /// @param owner  keeps this object until the end is told
  /// @return whether there is a result.
  bool run(std::shared_ptr<const void> owner);
  /// The work does not come about.
  void abandon();
Q_SIGNALS:
  /// On the main thread. @p applied is whether the document has the result.
  void finished(bool applied);

private:
  struct Run {
    Plan plan;
    Mesh mesh;
    TriangleSelection selection;
  };

  void finish(const std::optional<Mesh>& result, bool cancelled);

  Vela::UiBase::CommandBase& m_command;
  const MeshUser& m_user;
  std::optional<Run> m_run; // left alone while the work lasts
};

} // namespace Workbench
