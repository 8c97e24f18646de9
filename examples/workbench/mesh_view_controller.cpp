// SPDX-License-Identifier: MIT
#include "mesh_view_controller.h"

#include <workbench/commands/open_mesh_command.h>
#include <workbench/commands/reset_view_command.h>
#include <workbench/commands/save_screenshot_command.h>
#include <workbench/mesh_view.h>

#include <QDropEvent>
#include <QMimeData>

namespace Workbench {

using namespace Vela::UiBase;

namespace {

QStringList filesOf(const QMimeData& data) {
  QStringList files;
  for (const QUrl& url : data.urls()) {
    if (url.isLocalFile())
      files += url.toLocalFile();
  }
  return files;
}

} // namespace

MeshViewController::MeshViewController(MeshView* view) : CmdsViewController(view) {}

MeshViewController::~MeshViewController() { stopOpening(); }

MeshView* MeshViewController::meshView() const { return qobject_cast<MeshView*>(getView()); }

OpenMeshCommand* MeshViewController::openCommand() const {
  return dynamic_cast<OpenMeshCommand*>(findCommand(OpenMeshCommand::className()));
}

void MeshViewController::openFiles(const QStringList& files) {
  if (OpenMeshCommand* const command = openCommand())
    command->open(files);
}

void MeshViewController::showMesh(const Mesh& mesh, const QString& fileName) {
  MeshView* const view = meshView();
  if (!view)
    return;
  m_fileName = fileName;
  view->setMesh(mesh);
  enableMeshCommands(true);
  Q_EMIT m_events.meshShown(fileName);
}

void MeshViewController::stopOpening() {
  if (OpenMeshCommand* const command = openCommand())
    command->stop();
}

void MeshViewController::settleCommandState(const QString& id, const CommandState& state) {
  CommandBase* const command = findCommand(id);
  if (!command)
    return;
  command->setCommandState(state);
  updateContextInStack(id, command->commandState());
}

void MeshViewController::enableMeshCommands(bool enable) {
  for (const QString& id : {ResetViewCommand::className(), SaveScreenshotCommand::className()})
    settleCommandState(id, {State(enable), State::Keep});
}

void MeshViewController::viewDidLoad() {
  CmdsViewController::viewDidLoad();
  enableMeshCommands(false);
}

void MeshViewController::commandEndedExecuting(CommandBase* command, bool checked) {
  CmdsViewController::commandEndedExecuting(command, checked);
  auto* const open = dynamic_cast<OpenMeshCommand*>(command);
  if (!open)
    return;
  const QList<OpenMeshCommand::Failure> failures = open->takeFailures();
  for (const OpenMeshCommand::Failure& failure : failures) {
    showNotification(failure.message, NotificationError);
    Q_EMIT m_events.openFailed(failure.fileName, failure.reason, failure.message);
  }
  Q_EMIT m_events.openFinished(failures.isEmpty());
  open->openWaiting();
}

void MeshViewController::onShutDown() { stopOpening(); }

bool MeshViewController::mouseDragEnter(QDragEnterEvent* event) {
  if (CmdsViewController::mouseDragEnter(event))
    return true;
  if (filesOf(*event->mimeData()).isEmpty())
    return false;
  event->acceptProposedAction();
  if (MeshView* const view = meshView())
    view->setDropHighlight(true);
  return true;
}

bool MeshViewController::mouseDragLeave(QDragLeaveEvent* event) {
  if (MeshView* const view = meshView())
    view->setDropHighlight(false);
  return CmdsViewController::mouseDragLeave(event);
}

bool MeshViewController::mouseDragMove(QDragMoveEvent* event) {
  if (CmdsViewController::mouseDragMove(event))
    return true;
  if (filesOf(*event->mimeData()).isEmpty())
    return false;
  event->acceptProposedAction();
  return true;
}

bool MeshViewController::mouseDrop(QDropEvent* event) {
  if (MeshView* const view = meshView())
    view->setDropHighlight(false);
  if (CmdsViewController::mouseDrop(event))
    return true;
  const QStringList files = filesOf(*event->mimeData());
  if (files.isEmpty())
    return false;
  event->acceptProposedAction();
  openFiles(files);
  return true;
}

} // namespace Workbench
