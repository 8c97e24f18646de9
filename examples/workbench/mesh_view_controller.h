// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/views/cmds_view_controller.h>
#include <workbench/mesh.h>
#include <workbench/mesh_view_events.h>

#include <QStringList>

namespace Workbench {

class MeshView;
class OpenMeshCommand;

/// The controller of a MeshView: opens the files that are asked for or dropped, shows their meshes, and tells
/// of what went wrong.
///
/// Owned by its view. Its commands come from the application manager when the view is shown first.
class MeshViewController : public Vela::UiBase::CmdsViewController {
  Q_DECLARE_TR_FUNCTIONS(Workbench::MeshViewController)

public:
  explicit MeshViewController(MeshView* view);
  ~MeshViewController() override;

  /// The view, or null when it is gone.
  MeshView* meshView() const;
  /// Lives as long as the controller.
  MeshViewEvents& events() noexcept { return m_events; }
  /// The file of the mesh that is shown; empty when none is.
  const QString& fileName() const noexcept { return m_fileName; }

  /// Opens files one after another, once the view is loaded; the mesh of the last one stays.
  void openFiles(const QStringList& files);
  /// Puts a mesh in the place of the one shown.
  void showMesh(const Mesh& mesh, const QString& fileName);
  /// Ends the reading of files, if any is going on.
  void stopOpening();
  /// Sets how a command stands, also for when a context that is pushed now is popped again.
  void settleCommandState(const QString& id, const Vela::UiBase::CommandState& state);

  void viewDidLoad() override;
  void commandEndedExecuting(Vela::UiBase::CommandBase* command, bool checked) override;
  void onShutDown() override;

  bool mouseDragEnter(QDragEnterEvent* event) override;
  bool mouseDragLeave(QDragLeaveEvent* event) override;
  bool mouseDragMove(QDragMoveEvent* event) override;
  bool mouseDrop(QDropEvent* event) override;

private:
  OpenMeshCommand* openCommand() const;
  void enableMeshCommands(bool enable);

  MeshViewEvents m_events;
  QString m_fileName;
};

} // namespace Workbench
