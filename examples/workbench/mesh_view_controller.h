// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/tools/tool_operation.h>
#include <ui_base/views/cmds_view_controller.h>
#include <workbench/mesh.h>
#include <workbench/mesh_view_events.h>
#include <workbench/selection_commands.h>
#include <workbench/tools/mesh_tools.h>
#include <workbench/unsaved_changes.h>

#include <QMap>
#include <QPointer>
#include <QStringList>

#include <set>

class QMenu;

namespace Workbench {

class MeshUser;
class MeshView;
class OpenMeshCommand;

/// The controller of a MeshView: its tools and commands. It opens the files that are asked for or dropped,
/// shows their meshes, tells of what went wrong, and keeps each command enabled just when it can be used.
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
  /// The commands for what is selected, which come and go with the selection.
  SelectionCommands& selectionCommands() noexcept { return m_selectionCommands; }
  const SelectionCommands& selectionCommands() const noexcept { return m_selectionCommands; }
  /// The file of the mesh that is shown; empty when none is.
  QString fileName() const;

  /// Opens files one after another, once the view is loaded; the mesh of the last one stays. Photographs
  /// among them are left to whoever hears of them through events().
  void openFiles(const QStringList& files);
  /// Puts a mesh in the place of the one shown.
  void showMesh(const Mesh& mesh, const QString& fileName);
  /// A command is executing that works on the mesh, or is about to replace it, or a command holds it.
  bool isMeshLocked() const;
  /// A command is executing whose work would be lost with the mesh.
  bool isMeshEdited() const;
  /// A command is writing the mesh to a file.
  bool isSaving() const;
  /// From now on nobody else changes the mesh: a flyout for changing it is open. One command at a time; files
  /// that are opened cancel it.
  void holdMesh(MeshUser& command);
  /// Does nothing when the command does not hold the mesh.
  void releaseMesh(const MeshUser& command);
  /// Asks the commands that are executing or hold the mesh to end early. @return whether there are any that
  /// lock it.
  bool cancelWork();

  /// What the left mouse button does.
  EToolMode mode() const noexcept { return m_mode; }
  void enterMode(EToolMode mode);
  /// Back to PickMode, unless it is in another mode meanwhile.
  void leaveMode(EToolMode mode);
  /// A tool operates, and the mouse has been moved so far that it is no click.
  bool isDragging() const;

  /// Does again what the view told to the OperationLog: what keys do with the camera and the selection.
  /// @return whether it could.
  bool performOnView(const Vela::UiBase::ToolOperation& operation);

  /// Whether the view is the page that is seen, as at first. While it is not, work on the mesh that can be
  /// cancelled goes on, but no command for the mesh can be used.
  void setPageShown(bool shown);

  /// Which commands can be used as things are.
  Vela::UiBase::CommandContext availability() const;

  void viewDidLoad() override;
  bool viewWillClose() override;
  void commandBegan(Vela::UiBase::CommandBase* command) override;
  void commandEnded(Vela::UiBase::CommandBase* command) override;
  void commandBeganExecuting(Vela::UiBase::CommandBase* command, bool checked) override;
  void commandEndedExecuting(Vela::UiBase::CommandBase* command, bool checked) override;
  /// Asks the user first when something would be lost; then the answer is no until that is settled.
  bool mayShutDown() override;
  void onShutDown() override;

  bool keyPress(QKeyEvent* event) override;
  bool mouseDragEnter(QDragEnterEvent* event) override;
  bool mouseDragLeave(QDragLeaveEvent* event) override;
  bool mouseDragMove(QDragMoveEvent* event) override;
  bool mouseDrop(QDropEvent* event) override;

protected:
  bool rightClick(QMouseEvent* release) override;
  void commandForgotten(Vela::UiBase::CommandBase& command) override;

private:
  OpenMeshCommand* openCommand() const;
  void follow(MeshView& view);
  void refreshCommands();
  void openMeshes(const QStringList& files);
  void openNow(const QStringList& files);
  void openWaitingFiles();
  /// Why commands cannot be used, by identifier; empty for one that can.
  using Obstacles = QMap<QString, QString>;
  Obstacles obstacles() const;
  void addObstacles(const Vela::UiBase::CommandBag& bag, Obstacles& obstacles) const;
  void applyAvailability();
  void tellFailures(OpenMeshCommand& command);
  void openMenu(const QPoint& position);
  void cancelPivot();
  bool escape();
  bool moveCamera(const QKeyEvent& event);

  MeshViewEvents m_events;
  SelectionCommands m_selectionCommands;
  MeshTools m_tools;
  UnsavedChanges m_unsaved{*this};
  bool m_shutDown = false; // the program ends, with everybody's consent
  EToolMode m_mode = Workbench::PickMode;
  std::set<Vela::UiBase::CommandBase*> m_executing;
  MeshUser* m_holder = nullptr;
  bool m_refreshing = false;
  bool m_pageShown = true;
  QPointer<QMenu> m_menu;
};

} // namespace Workbench
