// SPDX-License-Identifier: MIT
#include "save_screenshot_command.h"

#include <ui_base/views/qt_ui_toolkit.h>
#include <vlk_app_service/application_service.h>
#include <vlk_app_service/config_manager.h>
#include <workbench/command_menus.h>
#include <workbench/mesh_view.h>
#include <workbench/mesh_view_controller.h>

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QImageWriter>
#include <QStandardPaths>

#include <stdexcept>

namespace Workbench {

using namespace Vela::UiBase;

namespace {

constexpr QLatin1String FolderKey("screenshots/folder");

Vela::Services::ConfigManager& config() {
  return Vela::Services::ApplicationService::GetInstance().GetConfigManager();
}

} // namespace

SaveScreenshotCommand::SaveScreenshotCommand(MeshViewController* controller) : CommandBase(controller) {
  setText(tr("Save &Screenshot…"));
  setIcon(QtUiToolkit::Instance().CreateIcon(QStringLiteral("screenshot")));
  setShortcut(Qt::CTRL | Qt::SHIFT | Qt::Key_S);
  setStatusTip(tr("Save the picture of the mesh to an image file"));
  setBaseGroupName(FileSection);
  setExecutionQoS(Taren::Core::LowQoS);
  enableExecutionNotification(true);
}

bool SaveScreenshotCommand::onExecute(bool checked) {
  if (m_file.isEmpty()) {
    askForFile();
    return false;
  }
  return CommandBase::onExecute(checked);
}

bool SaveScreenshotCommand::onExecuteAsync(bool) {
  QImageWriter writer(std::exchange(m_file, {}));
  const bool written = writer.write(std::exchange(m_picture, {}));
  if (!written)
    throw std::runtime_error(
        QStringLiteral("%1: %2").arg(writer.fileName(), writer.errorString()).toLocal8Bit().toStdString());
  return true;
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

void SaveScreenshotCommand::save(const QString& file) {
  auto* const view = qobject_cast<MeshView*>(getView());
  if (!view || file.isEmpty())
    return;
  config().setValue(FolderKey, QFileInfo(file).absolutePath());
  m_picture = view->picture();
  m_file = file;
  const QString name = QFileInfo(file).fileName();
  setExecutionNotificationMessage(StartNotification, tr("Saving %1…").arg(name));
  setExecutionNotificationMessage(EndNotification, tr("Saved %1").arg(name));
  onExecute();
}

QString SaveScreenshotCommand::suggestedFile() const {
  const auto* const controller = dynamic_cast<MeshViewController*>(getViewController());
  const QString mesh = controller ? QFileInfo(controller->fileName()).completeBaseName() : QString();
  const QString pictures = QStandardPaths::writableLocation(QStandardPaths::PicturesLocation);
  return QDir(config().value(FolderKey, pictures).toString())
      .filePath((mesh.isEmpty() ? tr("screenshot") : mesh) + QStringLiteral(".png"));
}

} // namespace Workbench
