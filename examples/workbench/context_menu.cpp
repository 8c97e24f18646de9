// SPDX-License-Identifier: MIT
#include "context_menu.h"

#include <ui_base/commands/command_group.h>
#include <vlk_common_res/styles.h>
#include <workbench/commands/clear_measurements_command.h>
#include <workbench/commands/mode_command.h>
#include <workbench/commands/reset_view_command.h>
#include <workbench/commands/selection_command.h>
#include <workbench/commands/set_pivot_command.h>
#include <workbench/commands/shading_command.h>
#include <workbench/mesh_view.h>
#include <workbench/mesh_view_controller.h>

#include <QMenu>

namespace Workbench {

using namespace Vela::UiBase;

namespace {

void addGroupMenu(QMenu& menu, const CommandGroup& group) {
  QMenu* const subMenu = menu.addMenu(group.icon(), group.text());
  const CommandBag& children = group.commandBag();
  for (int i = 0; i < children.count(); ++i)
    subMenu->addAction(children.commandAt(i));
}

// The mesh may change while the menu is open, and with it what was measured.
void addRemoval(QMenu& menu, MeshView& view, const QPoint& place) {
  Measurements& measurements = view.measurements();
  const auto project = [&view](const QVector3D& point) { return view.camera().project(point, view.size()); };
  const auto index = measurements.nearestTo(place, project);
  if (!index)
    return;
  QAction* const action = menu.addAction(Measurements::tr("Remove &This Distance"));
  const auto take = [&measurements, which = *index, count = measurements.distances().size()] {
    if (measurements.distances().size() == count)
      measurements.remove(which);
  };
  QObject::connect(action, &QAction::triggered, &measurements, take);
  menu.addSeparator();
}

} // namespace

QMenu* makeContextMenu(const MeshViewController& controller, const QPoint& position) {
  MeshView* const view = controller.meshView();
  if (!view)
    return nullptr;
  auto* const menu = new QMenu(view);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  menu->setStyleSheet(Vela::Resource::Styles::Instance().MenuMain());
  const auto add = [&](const QStringList& ids) {
    for (const QString& id : ids) {
      if (CommandBase* const command = controller.findCommand(id))
        menu->addAction(command);
    }
  };
  addRemoval(*menu, *view, view->mapFromGlobal(position));
  add({ModeCommand::idOf(PickMode), ModeCommand::idOf(MeasureMode), ModeCommand::idOf(RectangleMode)});
  menu->addSeparator();
  if (controller.selectionCommands().isInUse() && controller.mode() != MeasureMode) {
    add({SelectionCommand::idOf(SelectConnected), SelectionCommand::idOf(GrowSelection),
         SelectionCommand::idOf(ClearSelection), SelectionCommand::idOf(DeleteSelection)});
    menu->addSeparator();
  }
  add({ResetViewCommand::className(), SetPivotCommand::className(), ClearMeasurementsCommand::className()});
  const CommandBase* const shading = controller.findCommand(ShadingCommand::idOf(SmoothShading));
  if (shading && shading->commandGroup())
    addGroupMenu(*menu, *shading->commandGroup());
  return menu;
}

} // namespace Workbench
