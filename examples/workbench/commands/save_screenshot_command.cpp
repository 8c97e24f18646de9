// SPDX-License-Identifier: MIT
#include "save_screenshot_command.h"

#include <tqm_mesh_kernel/dispatch.h>
#include <ui_base/views/qt_ui_toolkit.h>
#include <workbench/command_menus.h>
#include <workbench/config.h>
#include <workbench/mesh_view.h>
#include <workbench/mesh_view_controller.h>
#include <workbench/renderer.h>
#include <workbench/session/file_inputs.h>

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QImageWriter>
#include <QSaveFile>
#include <QScopeGuard>
#include <QStandardPaths>

namespace Workbench {

using namespace Vela::UiBase;

namespace {

constexpr QLatin1String PictureFolderKey("screenshots/folder");

} // namespace

SaveScreenshotCommand::SaveScreenshotCommand(MeshViewController* controller) : WorkbenchCommand(controller) {
  setText({staticMetaObject, QT_TR_NOOP("Save S&creenshot…")});
  setIcon(QtUiToolkit::Instance().CreateIcon(QStringLiteral("screenshot")));
  setShortcut(Qt::CTRL | Qt::ALT | Qt::Key_S);
  setStatusTip({staticMetaObject, QT_TR_NOOP("Save the picture of the mesh to an image file")});
  setBaseGroupName(FileSection);
  setExecutionQoS(Taren::Core::LowQoS);
  enableExecutionNotification(true);
}

QString SaveScreenshotCommand::obstacle() const {
  return m_run ? tr("A picture is being saved.") : needMesh();
}

QVariantMap SaveScreenshotCommand::inputs() const {
  return m_run ? FileInputs::of(m_run->file) : QVariantMap();
}

bool SaveScreenshotCommand::setInputs(const QVariantMap& inputs) {
  const QStringList files = FileInputs::files(inputs);
  return inputs.isEmpty() || (files.size() == 1 && prepare(files.constFirst()));
}

bool SaveScreenshotCommand::needsInputs() const { return true; }

bool SaveScreenshotCommand::onExecute(bool checked) {
  if (m_run)
    return false;
  if (!m_next) {
    askForFile();
    return false;
  }
  m_run.swap(m_next);
  setExecutionNotificationMessage(StartNotification, tr("Saving %1…").arg(m_run->name()));
  setExecutionNotificationMessage(EndNotification, {});
  const bool started = CommandBase::onExecute(checked);
  if (!started)
    m_run.reset();
  return started;
}

QString SaveScreenshotCommand::Shot::name() const { return QFileInfo(file).fileName(); }

bool SaveScreenshotCommand::onExecuteAsync(bool) {
  const auto self = std::dynamic_pointer_cast<SaveScreenshotCommand>(shared_from_this());
  const auto finish = qScopeGuard(
      [&self] { Taren::Core::dispatchAsync([self] { self->tellSaved(); }, Taren::Core::MainThreadQoS); });
  QSaveFile file(m_run->file);
  const QByteArray format = QFileInfo(m_run->file).suffix().toLatin1();
  if (!QImageWriter::supportedImageFormats().contains(format.toLower()))
    m_run->failure = tr("The format is not known; PNG and JPEG are.");
  else if (!file.open(QIODevice::WriteOnly) || !QImageWriter(&file, format).write(imageOf(m_run->picture)) ||
           !file.commit())
    m_run->failure = tr("It cannot be written: %1.").arg(file.errorString());
  return m_run->failure.isEmpty();
}

void SaveScreenshotCommand::tellSaved() {
  if (m_run && m_run->failure.isEmpty())
    setExecutionNotificationMessage(EndNotification, tr("Saved %1").arg(m_run->name()));
}

void SaveScreenshotCommand::executionEnded() {
  const std::optional<Shot> shot = std::exchange(m_run, std::nullopt);
  MeshViewController* const controller = meshController();
  if (controller && shot && !shot->failure.isEmpty())
    controller->showNotification(tr("Cannot save “%1”. %2").arg(shot->name(), shot->failure),
                                 NotificationError);
}

CommandContext SaveScreenshotCommand::getExecutionCommandContext() {
  const MeshViewController* const controller = meshController();
  return controller ? controller->availability() : CommandContext();
}

void SaveScreenshotCommand::askForFile() {
  const BaseView* const view = getView();
  auto* const dialog =
      new QFileDialog(view ? view->window() : nullptr, tr("Save Screenshot"), suggestedFile(),
                      tr("PNG image (*.png)") + QStringLiteral(";;") + tr("JPEG image (*.jpg *.jpeg)"));
  dialog->setAttribute(Qt::WA_DeleteOnClose);
  dialog->setAcceptMode(QFileDialog::AcceptSave);
  dialog->setDefaultSuffix(QStringLiteral("png"));
  connect(dialog, &QFileDialog::fileSelected, this, &SaveScreenshotCommand::save);
  dialog->open();
}

bool SaveScreenshotCommand::prepare(const QString& file) {
  MeshView* const view = meshView();
  if (!view || file.isEmpty() || m_run)
    return false;
  config().setValue(PictureFolderKey, QFileInfo(file).absolutePath());
  m_next = Shot{file, view->picture(), {}};
  return true;
}

void SaveScreenshotCommand::save(const QString& file) {
  if (prepare(file))
    onExecute();
}

QString SaveScreenshotCommand::suggestedFile() const {
  const MeshViewController* const controller = meshController();
  const QString mesh = controller ? QFileInfo(controller->fileName()).completeBaseName() : QString();
  const QString pictures = QStandardPaths::writableLocation(QStandardPaths::PicturesLocation);
  return QDir(config().value(PictureFolderKey, pictures).toString())
      .filePath((mesh.isEmpty() ? tr("screenshot") : mesh) + QStringLiteral(".png"));
}

} // namespace Workbench
