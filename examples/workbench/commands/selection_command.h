// SPDX-License-Identifier: MIT
#pragma once

#include <workbench/commands/workbench_command.h>

namespace Workbench {

/// What a SelectionCommand does.
enum ESelectionChange : int {
  SelectAll = 0,
  InvertSelection = 1,
  ClearSelection = 2,
  GrowSelection = 3,   ///< By the triangles around it.
  SelectConnected = 4, ///< Everything that hangs together with it.
  DeleteSelection = 5, ///< The triangles themselves.
};

/// Changes what is selected of the mesh, as a step that can be undone. One command for each change; none is
/// there for the mode that measures.
class SelectionCommand : public WorkbenchCommand {
  Q_OBJECT

public:
  SelectionCommand(MeshViewController* controller, ESelectionChange change);

  static QString idOf(ESelectionChange change);
  QString commandId() const override { return idOf(m_change); }
  QString obstacle() const override;
  bool onExecuteAsync(bool checked) override;

private:
  ESelectionChange m_change;
};

} // namespace Workbench
