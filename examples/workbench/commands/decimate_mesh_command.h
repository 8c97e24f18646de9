// SPDX-License-Identifier: MIT
#pragma once

#include <workbench/commands/mesh_operation_command.h>

namespace Workbench {

/// Reduces the mesh to half of its triangles. A paid feature.
class DecimateMeshCommand : public MeshOperationCommand {
  Q_OBJECT
  COMMAND_ID(DecimateMeshCommand)

public:
  explicit DecimateMeshCommand(MeshViewController* controller);

protected:
  Mesh work(const Mesh& mesh, const TriangleSelection& selection,
            const Vela::UiBase::RunProgress& progress) const override;
  QString workingText() const override;
  QString doneText(const Mesh& before, const Mesh& after) const override;
};

} // namespace Workbench
