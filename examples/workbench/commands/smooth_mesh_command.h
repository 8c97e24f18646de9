// SPDX-License-Identifier: MIT
#pragma once

#include <workbench/commands/mesh_operation_command.h>

namespace Workbench {

/// Smooths the mesh, or what of it is selected.
class SmoothMeshCommand : public MeshOperationCommand {
  Q_OBJECT
  COMMAND_ID(SmoothMeshCommand)

public:
  explicit SmoothMeshCommand(MeshViewController* controller);

protected:
  Mesh work(const Mesh& mesh, const TriangleSelection& selection,
            const Vela::UiBase::RunProgress& progress) const override;
  QString workingText() const override;
  QString doneText(const Mesh& before, const Mesh& after) const override;
};

} // namespace Workbench
