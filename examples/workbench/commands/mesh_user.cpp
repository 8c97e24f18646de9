// SPDX-License-Identifier: MIT
#include "mesh_user.h"

#include <ui_base/commands/command_base.h>
#include <workbench/mesh_view.h>
#include <workbench/mesh_view_controller.h>

#include <QCoreApplication>

namespace Workbench {

namespace {

struct Sentences {
  Q_DECLARE_TR_FUNCTIONS(Workbench::MeshUser)
};

} // namespace

QString MeshUser::obstacle() const { return {}; }

bool MeshUser::needsMeshPage() const { return true; }

bool MeshUser::locksMesh() const { return false; }

bool MeshUser::makesResult() const { return locksMesh(); }

void MeshUser::executionEnded() {}

void MeshUser::cancel() { m_command.requestStop(); }

MeshViewController* MeshUser::meshController() const {
  return dynamic_cast<MeshViewController*>(m_command.getViewController());
}

MeshView* MeshUser::meshView() const { return qobject_cast<MeshView*>(m_command.getView()); }

MeshDocument* MeshUser::document() const {
  MeshView* const view = meshView();
  return view ? &view->document() : nullptr;
}

bool MeshUser::hasMesh() const {
  const MeshDocument* const shown = document();
  return shown && !shown->mesh().isEmpty();
}

bool MeshUser::isMeshLocked() const {
  const MeshViewController* const controller = meshController();
  return !controller || controller->isMeshLocked();
}

QString MeshUser::needMesh() const { return hasMesh() ? QString() : Sentences::tr("No mesh is open."); }

QString MeshUser::needFreeMesh() const {
  const QString missing = needMesh();
  return missing.isEmpty() ? needUnlocked() : missing;
}

QString MeshUser::needUnlocked() const {
  return isMeshLocked() ? Sentences::tr("The mesh is being worked on.") : QString();
}

} // namespace Workbench
