// SPDX-License-Identifier: MIT
#include "mesh_operation_command.h"

#include <workbench/mesh_view_controller.h>

namespace Workbench {

using namespace Vela::UiBase;

MeshOperationCommand::MeshOperationCommand(MeshViewController* controller)
    : WorkbenchCommand(controller), m_edit(*this, *this) {
  setExecutionQoS(Taren::Core::NormalQoS);
}

QString MeshOperationCommand::obstacle() const { return needFreeMesh(); }

bool MeshOperationCommand::locksMesh() const { return true; }

bool MeshOperationCommand::onExecute(bool checked) {
  if (!isAvailable())
    return false;
  m_edit.begin({translatableText().inSentence(), workingText(),
                [this](const Mesh& mesh, const TriangleSelection& selection, const RunProgress& progress) {
                  return work(mesh, selection, progress);
                },
                [this](const Mesh& before, const Mesh& after) { return doneText(before, after); }});
  const bool started = CommandBase::onExecute(checked);
  if (!started)
    m_edit.abandon();
  return started;
}

bool MeshOperationCommand::onExecuteAsync(bool) { return m_edit.run(shared_from_this()); }

CommandContext MeshOperationCommand::getExecutionCommandContext() {
  const MeshViewController* const controller = meshController();
  return controller ? controller->availability() : CommandContext();
}

} // namespace Workbench
