// SPDX-License-Identifier: MIT
#include "open_mesh_command.h"

#include <tqm_mesh_kernel/dispatch.h>
#include <ui_base/views/qt_ui_toolkit.h>
#include <workbench/command_menus.h>
#include <workbench/config.h>
#include <workbench/failure_notice.h>
#include <workbench/mesh_loader.h>
#include <workbench/mesh_view.h>
#include <workbench/mesh_view_controller.h>
#include <workbench/photos/photo_loader.h>
#include <workbench/session/file_inputs.h>

#include <QFileDialog>
#include <QFileInfo>
#include <QScopeGuard>

namespace Workbench {

using namespace Vela::UiBase;
using Taren::Core::dispatchAsync;

namespace {

constexpr QLatin1String OpenFolderKey("files/folder");

QString nameFilters() {
  const QString separator = QStringLiteral(";;");
  return OpenMeshCommand::tr("Meshes and photographs (%1 %2)").arg(meshNamePatterns(), photoNamePatterns()) +
         separator + OpenMeshCommand::tr("Meshes (%1)").arg(meshNamePatterns()) + separator +
         OpenMeshCommand::tr("Photographs (%1)").arg(photoNamePatterns()) + separator +
         OpenMeshCommand::tr("All files (*)");
}

} // namespace

OpenMeshCommand::OpenMeshCommand(MeshViewController* controller) : WorkbenchCommand(controller) {
  setText({staticMetaObject, QT_TR_NOOP("&Open…")});
  setIcon(QtUiToolkit::Instance().CreateIcon(QStringLiteral("open_file")));
  setShortcut(QKeySequence::Open);
  setStatusTip(
      {staticMetaObject, QT_TR_NOOP("Show the mesh of an OBJ, PLY, STL, OFF or glTF file, or photographs")});
  setBaseGroupName(FileSection);
  setExecutionQoS(Taren::Core::NormalQoS);
  enableExecutionNotification(true);
}

void OpenMeshCommand::open(const QStringList& files) {
  m_waiting += files;
  if (!isMeshLocked())
    openWaiting();
}

void OpenMeshCommand::openWaiting() {
  m_running = false;
  if (!m_waiting.isEmpty())
    onExecute();
}

QString OpenMeshCommand::obstacle() const { return needUnlocked(); }

bool OpenMeshCommand::needsMeshPage() const { return false; }

bool OpenMeshCommand::locksMesh() const { return true; }

bool OpenMeshCommand::makesResult() const { return false; }

void OpenMeshCommand::cancel() {
  m_waiting.clear();
  requestStop();
}

QList<OpenMeshCommand::Failure> OpenMeshCommand::takeFailures() { return std::exchange(m_failures, {}); }

QVariantMap OpenMeshCommand::inputs() const { return FileInputs::of(m_files); }

bool OpenMeshCommand::setInputs(const QVariantMap& inputs) {
  const QStringList files = FileInputs::files(inputs);
  if (!m_running)
    m_waiting += files;
  return !files.isEmpty() || inputs.isEmpty();
}

bool OpenMeshCommand::needsInputs() const { return true; }

bool OpenMeshCommand::onExecute(bool checked) {
  if (m_running)
    return false;
  if (m_waiting.isEmpty()) {
    askForFiles();
    return false;
  }
  m_running = true;
  m_files = std::exchange(m_waiting, {});
  const QString name = QFileInfo(m_files.constFirst()).fileName();
  const QString message = m_files.size() == 1
                              ? tr("Opening %1…").arg(name)
                              : tr("Opening %1 and %2 more…").arg(name, QString::number(m_files.size() - 1));
  setExecutionNotificationMessage(StartNotification, message);
  setExecutionNotificationMessage(EndNotification, {});
  if (const MeshView* const view = meshView())
    clearMessages(*view);
  if (MeshViewController* const controller = meshController())
    Q_EMIT controller->events().openStarted(message);
  return CommandBase::onExecute(checked);
}

bool OpenMeshCommand::onExecuteAsync(bool) {
  const auto self = std::dynamic_pointer_cast<OpenMeshCommand>(shared_from_this());
  const CommandRun run = CommandRun::current();
  const std::stop_token stop = run.stopToken();
  Outcome outcome;
  // However the run ends, the user is told what became of the files.
  const auto finish = qScopeGuard([&self, &outcome] {
    dispatchAsync([self, outcome] { self->finishRun(outcome); }, Taren::Core::MainThreadQoS);
  });
  for (const QString& file : std::as_const(m_files)) {
    if (m_files.size() > 1)
      run.setProgress(double(outcome.opened + outcome.failures.size()) / double(m_files.size()));
    try {
      const Mesh mesh = loadMesh(file, stop);
      const auto show = [self, mesh, file] {
        if (MeshViewController* const controller = self->meshController())
          controller->showMesh(mesh, file);
      };
      dispatchAsync(show, Taren::Core::MainThreadQoS);
      ++outcome.opened;
    } catch (const MeshLoadError& error) {
      if (stop.stop_requested())
        return false;
      outcome.failures.append({file, error.reason(), error.message(), error.details()});
    } catch (const std::exception& error) {
      const MeshLoadError failure(file, tr("Reading it failed."), QString::fromLocal8Bit(error.what()));
      outcome.failures.append({file, failure.reason(), failure.message(), failure.details()});
    }
  }
  return outcome.failures.isEmpty();
}

// Comes after the last mesh is shown and before the closing steps, which tell the user.
void OpenMeshCommand::finishRun(const Outcome& outcome) {
  m_failures = outcome.failures;
  const qsizetype opened = outcome.opened;
  if (opened > 0)
    setExecutionNotificationMessage(EndNotification,
                                    opened == 1 && m_files.size() == 1
                                        ? tr("Opened %1").arg(QFileInfo(m_files.constFirst()).fileName())
                                        : tr("Opened %1 of %2 files").arg(opened).arg(m_files.size()));
}

CommandContext OpenMeshCommand::getExecutionCommandContext() {
  const MeshViewController* const controller = meshController();
  return controller ? controller->availability() : CommandContext();
}

void OpenMeshCommand::askForFiles() {
  const BaseView* const view = getView();
  auto* const dialog = new QFileDialog(view ? view->window() : nullptr, tr("Open"),
                                       config().value(OpenFolderKey).toString(), nameFilters());
  dialog->setAttribute(Qt::WA_DeleteOnClose);
  dialog->setFileMode(QFileDialog::ExistingFiles);
  connect(dialog, &QFileDialog::filesSelected, this, [this](const QStringList& files) {
    config().setValue(OpenFolderKey, QFileInfo(files.constFirst()).absolutePath());
    if (MeshViewController* const controller = meshController())
      controller->openFiles(files);
  });
  dialog->open();
}

} // namespace Workbench
