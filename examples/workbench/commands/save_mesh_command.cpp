// SPDX-License-Identifier: MIT
#include "save_mesh_command.h"

#include <tqm_mesh_kernel/dispatch.h>
#include <ui_base/views/qt_ui_toolkit.h>
#include <workbench/command_menus.h>
#include <workbench/config.h>
#include <workbench/mesh_document.h>
#include <workbench/mesh_view.h>
#include <workbench/mesh_view_controller.h>
#include <workbench/mesh_writer.h>
#include <workbench/recent_files.h>
#include <workbench/session/file_inputs.h>

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QScopeGuard>

namespace Workbench {

using namespace Vela::UiBase;

namespace {

constexpr QLatin1String ExportFolderKey("export/folder");

} // namespace

SaveMeshCommand::SaveMeshCommand(MeshViewController* controller, ESaving saving)
    : WorkbenchCommand(controller), m_saving(saving) {
  describe();
  setBaseGroupName(FileSection);
  setExecutionQoS(Taren::Core::NormalQoS);
  enableExecutionNotification(true);
}

void SaveMeshCommand::describe() {
  switch (m_saving) {
  case SaveMesh:
    setText({staticMetaObject, QT_TR_NOOP("&Save")});
    setIcon(QtUiToolkit::Instance().CreateIcon(QStringLiteral("save")));
    setShortcut(Qt::CTRL | Qt::Key_S);
    setStatusTip({staticMetaObject, QT_TR_NOOP("Save the mesh to its file")});
    break;
  case SaveMeshAs:
    setText({staticMetaObject, QT_TR_NOOP("Save &As…")});
    setShortcut(Qt::CTRL | Qt::SHIFT | Qt::Key_S);
    setStatusTip({staticMetaObject, QT_TR_NOOP("Save the mesh to another file, and go on with that")});
    break;
  case ExportMesh:
    setText({staticMetaObject, QT_TR_NOOP("&Export…")});
    setShortcut(Qt::CTRL | Qt::Key_E);
    setStatusTip({staticMetaObject, QT_TR_NOOP("Save a copy of the mesh as OBJ, PLY or STL")});
    break;
  }
}

QString SaveMeshCommand::idOf(ESaving saving) {
  return QString::fromLatin1(staticMetaObject.className()) + QString::number(saving);
}

QString SaveMeshCommand::obstacle() const {
  if (m_run)
    return tr("The mesh is being saved.");
  QString missing = needFreeMesh();
  if (!missing.isEmpty() || m_saving != SaveMesh)
    return missing;
  return document()->isModified() ? QString() : tr("There are no changes to save.");
}

bool SaveMeshCommand::locksMesh() const { return true; }

bool SaveMeshCommand::makesResult() const { return false; }

void SaveMeshCommand::save() { onExecute(); }

QVariantMap SaveMeshCommand::inputs() const { return m_run ? FileInputs::of(m_run->file) : QVariantMap(); }

bool SaveMeshCommand::setInputs(const QVariantMap& inputs) {
  const QStringList files = FileInputs::files(inputs);
  return inputs.isEmpty() || (files.size() == 1 && prepare(files.constFirst()));
}

bool SaveMeshCommand::needsInputs() const { return true; }

bool SaveMeshCommand::onExecute(bool checked) {
  if (m_run || !hasMesh())
    return false;
  if (!m_next) {
    const QString file = document()->fileName();
    if (m_saving == SaveMesh && canSaveMesh(file))
      saveTo(file);
    else
      askForFile();
    return false;
  }
  m_run.swap(m_next);
  const bool started = CommandBase::onExecute(checked);
  if (!started)
    m_run.reset();
  return started;
}

bool SaveMeshCommand::onExecuteAsync(bool) {
  const auto self = std::dynamic_pointer_cast<SaveMeshCommand>(shared_from_this());
  const auto finishLater = qScopeGuard(
      [&self] { Taren::Core::dispatchAsync([self] { self->finish(); }, Taren::Core::MainThreadQoS); });
  try {
    saveMesh(m_run->mesh, m_run->file, CommandRun::current().reporter());
    m_run->saved = true;
  } catch (const MeshSaveError& error) {
    m_run->failure = error.message();
  }
  return m_run->saved;
}

// Comes before the closing steps of the command.
void SaveMeshCommand::finish() {
  MeshDocument* const edited = document();
  if (!m_run || !m_run->saved)
    return;
  setExecutionNotificationMessage(EndNotification, tr("Saved %1").arg(QFileInfo(m_run->file).fileName()));
  if (edited && m_saving != ExportMesh)
    edited->setSaved(m_run->mesh, m_run->file);
  RecentFiles::add(m_run->file);
}

void SaveMeshCommand::executionEnded() {
  const std::optional<Job> job = std::exchange(m_run, std::nullopt);
  if (!job)
    return;
  MeshViewController* const controller = meshController();
  if (controller && !job->failure.isEmpty())
    controller->showNotification(job->failure, NotificationError);
  tellFinished(job->saved);
}

void SaveMeshCommand::tellFinished(bool saved) {
  if (MeshViewController* const controller = meshController())
    Q_EMIT controller->events().savingFinished(saved);
}

CommandContext SaveMeshCommand::getExecutionCommandContext() {
  const MeshViewController* const controller = meshController();
  return controller ? controller->availability() : CommandContext();
}

void SaveMeshCommand::askForFile() {
  const BaseView* const view = getView();
  const QStringList filters = savedMeshFilters();
  auto* const dialog =
      new QFileDialog(view ? view->window() : nullptr, m_saving == ExportMesh ? tr("Export") : tr("Save As"),
                      suggestedFile(), filters.join(QStringLiteral(";;")));
  dialog->setAttribute(Qt::WA_DeleteOnClose);
  dialog->setAcceptMode(QFileDialog::AcceptSave);
  const auto takeFilter = [dialog](const QString& filter) {
    const qsizetype end = filter.lastIndexOf(QLatin1Char(')'));
    dialog->setDefaultSuffix(filter.mid(end - 3, 3));
  };
  connect(dialog, &QFileDialog::filterSelected, dialog, takeFilter);
  const QString suffix = QFileInfo(suggestedFile()).suffix().toLower();
  for (const QString& filter : filters) {
    if (filter.endsWith(QStringLiteral(".%1)").arg(suffix)))
      dialog->selectNameFilter(filter);
  }
  takeFilter(dialog->selectedNameFilter());
  connect(dialog, &QFileDialog::fileSelected, this, &SaveMeshCommand::saveTo);
  connect(dialog, &QFileDialog::rejected, this, [this] { tellFinished(false); });
  dialog->open();
}

bool SaveMeshCommand::prepare(const QString& file) {
  const MeshDocument* const edited = document();
  if (!edited || file.isEmpty() || m_run)
    return false;
  if (m_saving == ExportMesh)
    config().setValue(ExportFolderKey, QFileInfo(file).absolutePath());
  m_next = Job{file, edited->mesh(), false, {}};
  setExecutionNotificationMessage(StartNotification, tr("Saving %1…").arg(QFileInfo(file).fileName()));
  setExecutionNotificationMessage(EndNotification, {});
  return true;
}

void SaveMeshCommand::saveTo(const QString& file) {
  if (prepare(file) && !onExecute())
    tellFinished(false);
}

QString SaveMeshCommand::suggestedFile() const {
  const QFileInfo file(document() ? document()->fileName() : QString());
  const QDir folder(m_saving == ExportMesh ? config().value(ExportFolderKey, file.absolutePath()).toString()
                                           : file.absolutePath());
  const QString suffix = canSaveMesh(file.fileName()) ? file.suffix() : QStringLiteral("ply");
  return folder.filePath(file.completeBaseName() + QLatin1Char('.') + suffix);
}

} // namespace Workbench
