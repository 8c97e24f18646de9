// SPDX-License-Identifier: MIT
#include "volume_panel_command.h"

#include <vlk_app_service/application_service.h>
#include <vlk_app_service/config_manager.h>
#include <workbench/command_menus.h>
#include <workbench/mesh_view.h>
#include <workbench/panels/volume_panel.h>

namespace Workbench {

using namespace Vela::UiBase;

namespace {

constexpr QLatin1String ShownKey("volume/shown");

Vela::Services::ConfigManager& config() {
  return Vela::Services::ApplicationService::GetInstance().GetConfigManager();
}

} // namespace

VolumePanelCommand::VolumePanelCommand(MeshViewController* controller) : WorkbenchCommand(controller) {
  setText(tr("Print &Volume"));
  setShortcut(Qt::CTRL | Qt::SHIFT | Qt::Key_V);
  setStatusTip(tr("Show how much material printing the mesh takes, with the supports it needs"));
  setBaseGroupName(ViewSection);
  setCheckable(true);
  const bool shown = config().value(ShownKey, false).toBool();
  if (MeshView* const view = meshView()) {
    m_panel = new VolumePanel(*view);
    m_panel->setVisible(shown);
  }
  const QSignalBlocker blocker(this);
  setChecked(shown);
}

VolumePanelCommand::~VolumePanelCommand() {
  beginDestruction();
  delete m_panel;
}

void VolumePanelCommand::setCommandState(const CommandState& state) {
  CommandBase::setCommandState({state.enabled, State::Keep});
}

bool VolumePanelCommand::onExecuteAsync(bool checked) {
  if (!m_panel)
    return false;
  m_panel->setVisible(checked);
  config().setValue(ShownKey, checked);
  return true;
}

} // namespace Workbench
