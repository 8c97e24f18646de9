// SPDX-License-Identifier: MIT
#pragma once

#include <workbench/mesh.h>
#include <workbench/mesh_ops/progress.h>
#include <workbench/mesh_ops/triangle_selection.h>

#include <QObject>
#include <QPointer>
#include <QTimer>

#include <functional>
#include <memory>
#include <optional>
#include <stop_token>

namespace Workbench {

class MeshUser;
class ProgressContent;

/// The work of a command that makes another mesh of the one shown, on a thread of the dispatcher.
///
/// A notification over the view tells how far the work is and offers to cancel it, when it takes a moment.
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
    QString step;    ///< What was done, for a user, as in "Undo %1".
    QString working; ///< What is shown during the work, "Smoothing".
    /// Called on a thread of the dispatcher.
    std::function<Mesh(const Mesh& mesh, const TriangleSelection& selection, const Progress& progress)> work;
    /// What is shown afterwards.
    std::function<QString(const Mesh& before, const Mesh& after)> done;
  };

  /// @param user  the command, which outlives the object
  explicit MeshEdit(const MeshUser& user);
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
  /// Ends the work as soon as it looks.
  void cancel();

Q_SIGNALS:
  /// On the main thread. @p applied is whether the document has the result.
  void finished(bool applied);

private:
  struct Run {
    Plan plan;
    Mesh mesh;
    TriangleSelection selection;
    std::stop_source stop;
  };

  void showProgress();
  void setProgress(double fraction);
  void finish(const std::optional<Mesh>& result);
  void tell(const QString& message);

  const MeshUser& m_user;
  std::optional<Run> m_run; // left alone while the work lasts
  QTimer m_patience;        // what is done soon needs no notification
  QPointer<ProgressContent> m_progress;
};

} // namespace Workbench
