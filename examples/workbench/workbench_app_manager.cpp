// SPDX-License-Identifier: MIT
#include "workbench_app_manager.h"

#include <ui_base/commands/command_group.h>
#include <ui_base/commands/cycle_checkable_command.h>
#include <workbench/command_menus.h>
#include <workbench/commands/about_command.h>
#include <workbench/commands/clear_measurements_command.h>
#include <workbench/commands/dark_palette_command.h>
#include <workbench/commands/decimate_mesh_command.h>
#include <workbench/commands/find_command_command.h>
#include <workbench/commands/history_command.h>
#include <workbench/commands/inspect_command.h>
#include <workbench/commands/keyboard_command.h>
#include <workbench/commands/length_unit_command.h>
#include <workbench/commands/mesh_info_command.h>
#include <workbench/commands/mesh_user.h>
#include <workbench/commands/mode_command.h>
#include <workbench/commands/open_mesh_command.h>
#include <workbench/commands/open_recent_command.h>
#include <workbench/commands/placement_command.h>
#include <workbench/commands/quit_command.h>
#include <workbench/commands/reset_view_command.h>
#include <workbench/commands/save_mesh_command.h>
#include <workbench/commands/save_screenshot_command.h>
#include <workbench/commands/selection_command.h>
#include <workbench/commands/set_pivot_command.h>
#include <workbench/commands/shading_command.h>
#include <workbench/commands/smooth_flyout_command.h>
#include <workbench/commands/smooth_mesh_command.h>
#include <workbench/commands/volume_panel_command.h>
#include <workbench/mesh_view.h>
#include <workbench/mesh_view_controller.h>
#include <workbench/pages/show_page_command.h>
#include <workbench/panels/smooth_panel.h>
#include <workbench/photos/photo_command.h>
#include <workbench/photos/photo_view_controller.h>
#include <workbench/recent_files.h>
#include <workbench/toolbars/command_groups.h>

namespace Workbench {

using namespace Vela::UiBase;

namespace {

// What the left button does.
CommandGroup* modeGroup(MeshViewController* controller) {
  auto* const modes =
      new CommandGroup(QString(), WorkbenchAppManager::tr("Left mouse button"), QStringLiteral("Modes"));
  modes->setBaseGroupName(ToolsSection);
  int rank = 0;
  for (const EToolMode mode : {PickMode, MeasureMode, RectangleMode})
    modes->addCommand(new ModeCommand(controller, mode), rank++);
  return modes;
}

CommandGroup* shadingGroup(MeshViewController* controller) {
  auto* const group = new CommandGroup(QStringLiteral("smooth_shading"), WorkbenchAppManager::tr("Shading"),
                                       QStringLiteral("Shading"));
  group->setText(WorkbenchAppManager::tr("&Shading"));
  group->setBaseGroupName(LookSection);
  int rank = 0;
  for (const EShading shading : {SmoothShading, FlatShading, FlatShadingWithEdges})
    group->addCommand(new ShadingCommand(controller, shading), rank++);
  return group;
}

CommandGroup* unitGroup(MeshViewController* controller) {
  using namespace Vela::Common;
  auto* const group =
      new CommandGroup(QString(), WorkbenchAppManager::tr("Unit of distances"), QStringLiteral("LengthUnit"));
  group->setText(WorkbenchAppManager::tr("&Unit"));
  group->setBaseGroupName(MeasureSection);
  const std::pair<ELengthUnit, QString> units[] = {
      {Millimetre, WorkbenchAppManager::tr("&Millimetres")},
      {Centimetre, WorkbenchAppManager::tr("&Centimetres")},
      {Metre, WorkbenchAppManager::tr("M&etres")},
      {Inch, WorkbenchAppManager::tr("&Inches")},
      {Foot, WorkbenchAppManager::tr("&Feet")},
  };
  int rank = 0;
  for (const auto& [unit, text] : units)
    group->addCommand(new LengthUnitCommand(controller, unit, text), rank++);
  return group;
}

// Has its use on the page of the mesh.
class NextShadingCommand : public CycleCheckableCommand, public MeshUser {
public:
  NextShadingCommand(MeshViewController* controller, CommandGroup* shadings)
      : CycleCheckableCommand(controller, Qt::CTRL | Qt::SHIFT | Qt::Key_F, shadings),
        MeshUser(static_cast<const CommandBase&>(*this)) {}
};

CommandBase* nextShading(MeshViewController* controller, CommandGroup* shadings) {
  auto* const next = new NextShadingCommand(controller, shadings);
  next->setText(WorkbenchAppManager::tr("&Next Shading"));
  next->setStatusTip(WorkbenchAppManager::tr("Show the mesh in one shading after another"));
  next->setBaseGroupName(LookSection);
  return next;
}

// In use while something is selected.
CommandGroup* selectionGroup(MeshViewController* controller) {
  CommandGroup* const group = controller->selectionCommands().group();
  int rank = 0;
  for (const ESelectionChange change : {ClearSelection, GrowSelection, SelectConnected, DeleteSelection}) {
    group->removeCommand(SelectionCommand::idOf(change)); // that of a view before
    group->addCommand(new SelectionCommand(controller, change), rank++);
  }
  return group;
}

CommandGroup* recentGroup(MeshViewController* controller) {
  auto* const group =
      new CommandGroup(QString(), WorkbenchAppManager::tr("Recent files"), QStringLiteral("RecentFiles"));
  group->setText(WorkbenchAppManager::tr("Open &Recent"));
  group->setBaseGroupName(FileSection);
  for (int place = 0; place < RecentFiles::Most; ++place)
    group->addCommand(new OpenRecentCommand(controller, place), place);
  return group;
}

CommandGroup* pageGroup(MeshViewController* controller) {
  auto* const group = new CommandGroup(QString(), WorkbenchAppManager::tr("Page"), QStringLiteral("Pages"));
  group->setBaseGroupName(PageSection);
  int rank = 0;
  for (const EPage page : {MeshPage, PhotoPage})
    group->addCommand(new ShowPageCommand(controller, page), rank++);
  return group;
}

QList<CommandBase*> photoCommands(PhotoViewController* controller) {
  QList<CommandBase*> commands;
  for (const EPhotoAction action : PhotoActions)
    commands += new PhotoCommand(controller, action);
  return commands;
}

QList<CommandBase*> meshCommands(MeshViewController* mesh) {
  CommandGroup* const shadings = shadingGroup(mesh);
  return {new OpenMeshCommand(mesh),
          recentGroup(mesh),
          new SaveMeshCommand(mesh, SaveMesh),
          new SaveMeshCommand(mesh, SaveMeshAs),
          new SaveMeshCommand(mesh, ExportMesh),
          new SaveScreenshotCommand(mesh),
          new QuitCommand(mesh),
          new UndoCommand(mesh),
          new RedoCommand(mesh),
          new SmoothMeshCommand(mesh),
          new SmoothFlyoutCommand(makeSmoothFlyout(mesh->meshView()), mesh),
          new DecimateMeshCommand(mesh),
          new MeshInfoCommand(mesh),
          new SelectionCommand(mesh, SelectAll),
          new SelectionCommand(mesh, InvertSelection),
          selectionGroup(mesh),
          modeGroup(mesh),
          new ClearMeasurementsCommand(mesh),
          unitGroup(mesh),
          pageGroup(mesh),
          new ResetViewCommand(mesh),
          new VolumePanelCommand(mesh),
          new SetPivotCommand(mesh),
          shadings,
          nextShading(mesh, shadings),
          new DarkPaletteCommand(mesh),
          new PlacementOverlayCommand(mesh),
          new PrintPlacementCommand(mesh),
          new FindCommandCommand(mesh),
          new KeyboardCommand(mesh, EditShortcuts),
          new KeyboardCommand(mesh, TryKeys),
          new InspectCommand(mesh),
          new AboutCommand(mesh)};
}

} // namespace

QList<CommandBase*> WorkbenchAppManager::commandsFor(CmdsViewController* controller) {
  if (auto* const photos = dynamic_cast<PhotoViewController*>(controller))
    return photoCommands(photos);
  auto* const mesh = dynamic_cast<MeshViewController*>(controller);
  if (!mesh)
    return {};
  QList<CommandBase*> commands = meshCommands(mesh);
  fillToolBarGroups(*mesh, commands);
  return commands;
}

} // namespace Workbench
