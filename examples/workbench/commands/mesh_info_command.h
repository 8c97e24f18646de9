// SPDX-License-Identifier: MIT
#pragma once

#include <workbench/commands/workbench_command.h>

#include <QPointer>

namespace Workbench {

class MeshInfoDialog;

/// Shows the figures of the mesh in a window that can stay open beside the view.
class MeshInfoCommand : public WorkbenchCommand {
  Q_OBJECT
  COMMAND_ID(MeshInfoCommand)

public:
  explicit MeshInfoCommand(MeshViewController* controller);

  QString obstacle() const override;
  bool onExecuteAsync(bool checked) override;

private:
  QPointer<MeshInfoDialog> m_dialog;
};

} // namespace Workbench
