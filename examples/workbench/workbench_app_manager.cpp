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
#include <workbench/commands/language_command.h>
#include <workbench/commands/length_unit_command.h>
#include <workbench/commands/measurement_command.h>
#include <workbench/commands/mesh_info_command.h>
#include <workbench/commands/mesh_user.h>
#include <workbench/commands/mode_command.h>
#include <workbench/commands/open_mesh_command.h>
#include <workbench/commands/open_recent_command.h>
#include <workbench/commands/placement_command.h>
#include <workbench/commands/quit_command.h>
#include <workbench/commands/reset_layout_command.h>
#include <workbench/commands/reset_view_command.h>
#include <workbench/commands/save_mesh_command.h>
#include <workbench/commands/save_screenshot_command.h>
#include <workbench/commands/selection_command.h>
#include <workbench/commands/set_pivot_command.h>
#include <workbench/commands/shading_command.h>
#include <workbench/commands/smooth_flyout_command.h>
#include <workbench/commands/smooth_mesh_command.h>
#include <workbench/commands/volume_panel_command.h>
#include <workbench/language.h>
#include <workbench/mesh_view.h>
#include <workbench/mesh_view_controller.h>
#include <workbench/pages/show_page_command.h>
#include <workbench/photos/photo_command.h>
#include <workbench/photos/photo_view_controller.h>
#include <workbench/recent_files.h>
#include <workbench/toolbars/command_groups.h>

namespace Workbench {

using namespace Vela::UiBase;

namespace {

Text text(const char* source) { return {"Workbench::WorkbenchAppManager", source}; }

// What the left button does.
CommandGroup* modeGroup(MeshViewController* controller) {
  auto* const modes = new CommandGroup(
      QString(), text(QT_TRANSLATE_NOOP("Workbench::WorkbenchAppManager", "Left mouse button")),
      QStringLiteral("Modes"));
  modes->setBaseGroupName(ToolsSection);
  int rank = 0;
  for (const EToolMode mode : {PickMode, MeasureMode, RectangleMode})
    modes->addCommand(new ModeCommand(controller, mode), rank++);
  return modes;
}

CommandGroup* shadingGroup(MeshViewController* controller) {
  auto* const group = new CommandGroup(QStringLiteral("smooth_shading"),
                                       text(QT_TRANSLATE_NOOP("Workbench::WorkbenchAppManager", "Shading")),
                                       QStringLiteral("Shading"));
  group->setText(text(QT_TRANSLATE_NOOP("Workbench::WorkbenchAppManager", "&Shading")));
  group->setBaseGroupName(LookSection);
  int rank = 0;
  for (const EShading shading : {SmoothShading, FlatShading, FlatShadingWithEdges})
    group->addCommand(new ShadingCommand(controller, shading), rank++);
  return group;
}

CommandGroup* unitGroup(MeshViewController* controller) {
  using namespace Vela::Common;
  auto* const group = new CommandGroup(
      QString(), text(QT_TRANSLATE_NOOP("Workbench::WorkbenchAppManager", "Unit of distances")),
      QStringLiteral("LengthUnit"));
  group->setText(text(QT_TRANSLATE_NOOP("Workbench::WorkbenchAppManager", "&Unit")));
  group->setBaseGroupName(MeasureSection);
  const std::pair<ELengthUnit, Text> units[] = {
      {Millimetre, text(QT_TRANSLATE_NOOP("Workbench::WorkbenchAppManager", "&Millimetres"))},
      {Centimetre, text(QT_TRANSLATE_NOOP("Workbench::WorkbenchAppManager", "&Centimetres"))},
      {Metre, text(QT_TRANSLATE_NOOP("Workbench::WorkbenchAppManager", "M&etres"))},
      {Inch, text(QT_TRANSLATE_NOOP("Workbench::WorkbenchAppManager", "&Inches"))},
      {Foot, text(QT_TRANSLATE_NOOP("Workbench::WorkbenchAppManager", "&Feet"))},
  };
  int rank = 0;
  for (const auto& [unit, name] : units)
    group->addCommand(new LengthUnitCommand(controller, unit, name), rank++);
  return group;
}

CommandGroup* languageGroup(MeshViewController* controller) {
  auto* const group =
      new CommandGroup(QString(), text(QT_TRANSLATE_NOOP("Workbench::WorkbenchAppManager", "Language")),
                       QStringLiteral("Language"));
  group->setText(text(QT_TRANSLATE_NOOP("Workbench::WorkbenchAppManager", "&Language")));
  group->setBaseGroupName(LookSection);
  int rank = 0;
  for (const QLocale::Language language : Language::all())
    group->addCommand(new LanguageCommand(controller, language), rank++);
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
  next->setText(text(QT_TRANSLATE_NOOP("Workbench::WorkbenchAppManager", "&Next Shading")));
  next->setStatusTip(text(
      QT_TRANSLATE_NOOP("Workbench::WorkbenchAppManager", "Show the mesh in one shading after another")));
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
      new CommandGroup(QString(), text(QT_TRANSLATE_NOOP("Workbench::WorkbenchAppManager", "Recent files")),
                       QStringLiteral("RecentFiles"));
  group->setText(text(QT_TRANSLATE_NOOP("Workbench::WorkbenchAppManager", "Open &Recent")));
  group->setBaseGroupName(FileSection);
  for (int place = 0; place < RecentFiles::Most; ++place)
    group->addCommand(new OpenRecentCommand(controller, place), place);
  return group;
}

CommandGroup* pageGroup(MeshViewController* controller) {
  auto* const group = new CommandGroup(
      QString(), text(QT_TRANSLATE_NOOP("Workbench::WorkbenchAppManager", "Page")), QStringLiteral("Pages"));
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
          new SmoothFlyoutCommand(mesh),
          new DecimateMeshCommand(mesh),
          new MeshInfoCommand(mesh),
          new SelectionCommand(mesh, SelectAll),
          new SelectionCommand(mesh, InvertSelection),
          selectionGroup(mesh),
          modeGroup(mesh),
          new MeasurementCommand(mesh, RemoveMeasurement),
          new MeasurementCommand(mesh, CopyMeasurements),
          new ClearMeasurementsCommand(mesh),
          unitGroup(mesh),
          pageGroup(mesh),
          new ResetViewCommand(mesh),
          new VolumePanelCommand(mesh),
          new SetPivotCommand(mesh),
          shadings,
          nextShading(mesh, shadings),
          new DarkPaletteCommand(mesh),
          languageGroup(mesh),
          new ResetLayoutCommand(mesh),
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
