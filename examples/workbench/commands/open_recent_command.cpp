// SPDX-License-Identifier: MIT
#include "open_recent_command.h"

#include <ui_base/assistants/shortcut_scheme.h>
#include <vlk_app_service/application_service.h>
#include <vlk_app_service/config_manager.h>
#include <workbench/mesh_view_controller.h>
#include <workbench/recent_files.h>

#include <QFileInfo>

namespace Workbench {

using Vela::Services::ApplicationService;

OpenRecentCommand::OpenRecentCommand(MeshViewController* controller, int place)
    : WorkbenchCommand(controller), m_place(place) {
  connect(&ApplicationService::GetInstance().GetConfigManager(), &Vela::Services::ConfigManager::valueChanged,
          this, [this](const QString& key) {
            if (key == RecentFiles::key())
              follow();
          });
  follow();
}

QString OpenRecentCommand::idOf(int place) {
  return QString::fromLatin1(staticMetaObject.className()) + QString::number(place);
}

void OpenRecentCommand::follow() {
  m_file = RecentFiles::list().value(m_place);
  QString name = QFileInfo(m_file).fileName();
  name.replace(QLatin1Char('&'), QStringLiteral("&&"));
  setText(QStringLiteral("&%1  %2").arg(m_place + 1).arg(name));
  setStatusTip(m_file);
  setVisible(!m_file.isEmpty());
}

QString OpenRecentCommand::obstacle() const {
  return m_file.isEmpty() ? tr("No file was opened yet.") : needUnlocked();
}

bool OpenRecentCommand::needsMeshPage() const { return false; }

QStringList OpenRecentCommand::commandTags() { return {Vela::UiBase::ShortcutScheme::noShortcutTag()}; }

bool OpenRecentCommand::onExecuteAsync(bool) {
  MeshViewController* const controller = meshController();
  if (!controller || m_file.isEmpty())
    return false;
  controller->openFiles({m_file});
  return true;
}

} // namespace Workbench
