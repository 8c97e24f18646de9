// SPDX-License-Identifier: MIT
#include "volume_panel_command.h"

#include <workbench/command_menus.h>
#include <workbench/config.h>
#include <workbench/mesh_view.h>
#include <workbench/panels/volume_panel.h>

namespace Workbench {

using namespace Vela::UiBase;

namespace {

constexpr QLatin1String ShownKey("volume/shown");

} // namespace

VolumePanelCommand::VolumePanelCommand(MeshViewController* controller) : WorkbenchCommand(controller) {
  setText({staticMetaObject, QT_TR_NOOP("Print &Volume")});
  setShortcut(Qt::CTRL | Qt::SHIFT | Qt::Key_V);
  setStatusTip({staticMetaObject,
                QT_TR_NOOP("Show how much material printing the mesh takes, with the supports it needs")});
  setBaseGroupName(ViewSection);
  setCheckable(true);
  const bool shown = config().value(ShownKey, false).toBool();
  if (shown)
    showPanel(true);
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
  if (!meshView())
    return false;
  showPanel(checked);
  config().setValue(ShownKey, checked);
  return true;
}

void VolumePanelCommand::showPanel(bool shown) {
  MeshView* const view = meshView();
  if (!m_panel && shown && view)
    m_panel = new VolumePanel(*view);
  if (m_panel)
    m_panel->setVisible(shown);
}

} // namespace Workbench
