// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace Vela::UiBase {
class CommandBase;
}

namespace Workbench {

class MeshDocument;
class MeshView;
class MeshViewController;

/// The side of a command that has to do with the mesh: when it can be used, and whether the mesh must stay as
/// it is meanwhile. Each of the workbench's commands is one, whatever kind of command it is else; the
/// controller looks for it with a dynamic cast.
///
/// @code
/// class MirrorCommand : public CommandBase, public MeshUser {
/// public:
///   explicit MirrorCommand(MeshViewController* controller) : CommandBase(controller), MeshUser(*this) {}
///   QString obstacle() const override { return needFreeMesh(); }
/// };
/// @endcode
class MeshUser {
public:
  /// Why it cannot be used as things are, a sentence for the user; empty when it can. The controller enables
  /// and disables the command accordingly, and its tooltip says why.
  virtual QString obstacle() const;
  bool isAvailable() const { return obstacle().isEmpty(); }
  /// Whether it can be used only on the page that shows the mesh; most can.
  virtual bool needsMeshPage() const;
  /// Whether the mesh must not change while the command executes.
  virtual bool locksMesh() const;
  /// Whether ending the execution early loses work; by default, when it locks the mesh.
  virtual bool makesResult() const;
  /// Its execution has ended, and what the library tells of it is told.
  virtual void executionEnded();
  /// Asks the command to end early, while it executes or holds the mesh: by default, its runs.
  virtual void cancel();

  /// @name Null when they are gone
  /// @{
  MeshViewController* meshController() const;
  MeshView* meshView() const;
  MeshDocument* document() const;
  /// @}

protected:
  /// @param command  the command itself
  explicit MeshUser(const Vela::UiBase::CommandBase& command) : m_command(command) {}
  virtual ~MeshUser() = default;

  bool hasMesh() const;
  /// Another command works on the mesh, or is about to replace it.
  bool isMeshLocked() const;

  /// @name Obstacles that several commands have
  /// @{
  QString needMesh() const;
  /// Also one that nobody works on.
  QString needFreeMesh() const;
  QString needUnlocked() const;
  /// @}

private:
  const Vela::UiBase::CommandBase& m_command;
};

} // namespace Workbench
