// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/commands/command_base.h>

namespace Workbench {

class MeshDocument;
class MeshView;
class MeshViewController;

/// The base of the workbench's commands: knows its controller, and when it can be used.
class WorkbenchCommand : public Vela::UiBase::CommandBase {
  Q_OBJECT

public:
  explicit WorkbenchCommand(MeshViewController* controller);

  /// Whether it can be used as things are: the controller enables and disables the command accordingly.
  virtual bool isAvailable() const;
  /// Whether the mesh must not change while the command executes.
  virtual bool locksMesh() const;
  /// Asks the command to end early, while it executes. Does nothing by default.
  virtual void cancel();

protected:
  /// @name Null when they are gone
  /// @{
  MeshViewController* meshController() const;
  MeshView* meshView() const;
  MeshDocument* document() const;
  /// @}
  bool hasMesh() const;
  /// Another command works on the mesh, or is about to replace it.
  bool isMeshLocked() const;
};

} // namespace Workbench
