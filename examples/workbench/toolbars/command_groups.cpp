// SPDX-License-Identifier: MIT
#include "command_groups.h"

#include <ui_base/commands/command_group.h>
#include <workbench/commands/decimate_mesh_command.h>
#include <workbench/commands/history_command.h>
#include <workbench/commands/mesh_info_command.h>
#include <workbench/commands/open_mesh_command.h>
#include <workbench/commands/reset_view_command.h>
#include <workbench/commands/save_mesh_command.h>
#include <workbench/commands/save_screenshot_command.h>
#include <workbench/commands/selection_command.h>
#include <workbench/commands/set_pivot_command.h>
#include <workbench/commands/smooth_flyout_command.h>
#include <workbench/commands/smooth_mesh_command.h>
#include <workbench/mesh_view_controller.h>

#include <QActionGroup>
#include <QCoreApplication>

#include <algorithm>

namespace Workbench {

using namespace Vela::UiBase;

namespace {

Text text(const char* source) { return {"Workbench::ToolBarGroups", source}; }

class ToolBarGroups {
public:
  explicit ToolBarGroups(const QList<CommandBase*>& commands) : m_commands(commands) {}

  void fill(CommandGroup& group, const QList<CommandBase*>& children) const;

  // Stands in a panel of its own.
  CommandGroup* panel(const char* name, const QList<CommandBase*>& children) const;
  // Stands behind a button.
  CommandGroup* menu(const char* name, const char* icon, const Text& text, const Text& tip,
                     const QList<CommandBase*>& children) const;

  template <typename Command>
  CommandBase* one() const {
    return one(Command::className());
  }
  CommandBase* one(const QString& id) const;
  CommandBase* group(const char* name) const {
    return one(CommandGroup::className() + QString::fromLatin1(name));
  }

private:
  const QList<CommandBase*>& m_commands;
};

CommandBase* ToolBarGroups::one(const QString& id) const {
  const auto found = std::find_if(m_commands.cbegin(), m_commands.cend(),
                                  [&id](const CommandBase* command) { return command->commandId() == id; });
  return found == m_commands.cend() ? nullptr : *found;
}

// What is on in one of the groups says nothing of the others.
void ToolBarGroups::fill(CommandGroup& group, const QList<CommandBase*>& children) const {
  group.groupActionGroup()->setExclusive(false);
  while (group.commandBag().count() > 0)
    group.removeCommand(group.commandBag().commandAt(0));
  int rank = 0;
  for (CommandBase* const child : children)
    group.addCommand(child, rank++);
}

CommandGroup* ToolBarGroups::panel(const char* name, const QList<CommandBase*>& children) const {
  auto* const group = new CommandGroup(QString(), QString(), QString::fromLatin1(name));
  fill(*group, children);
  return group;
}

CommandGroup* ToolBarGroups::menu(const char* name, const char* icon, const Text& text, const Text& tip,
                                  const QList<CommandBase*>& children) const {
  auto* const group = new CommandGroup(QString::fromLatin1(icon), text, QString::fromLatin1(name));
  group->setText(text);
  group->setStatusTip(tip);
  fill(*group, children);
  return group;
}

} // namespace

void fillToolBarGroups(MeshViewController& controller, const QList<CommandBase*>& commands) {
  const ToolBarGroups groups(commands);
  groups.fill(
      *controller.ToolPanelGroup(),
      {groups.panel("MainFile", {groups.one<OpenMeshCommand>(), groups.one(SaveMeshCommand::idOf(SaveMesh))}),
       groups.panel("MainHistory", {groups.one<UndoCommand>(), groups.one<RedoCommand>()}),
       groups.panel("MainView", {groups.one<ResetViewCommand>(), groups.group("Shading")}),
       groups.panel("MainResult", {groups.one<MeshInfoCommand>(), groups.one<SaveScreenshotCommand>()})});

  CommandGroup* const smoothing = groups.menu(
      "Smoothing", "smooth_mesh", text(QT_TRANSLATE_NOOP("Workbench::ToolBarGroups", "Smooth")),
      text(QT_TRANSLATE_NOOP("Workbench::ToolBarGroups", "Smooth the mesh, at once or step by step")),
      {groups.one<SmoothMeshCommand>(), groups.one<SmoothFlyoutCommand>()});
  CommandGroup* const selecting = groups.menu(
      "Selecting", "select_all", text(QT_TRANSLATE_NOOP("Workbench::ToolBarGroups", "Select")),
      text(QT_TRANSLATE_NOOP("Workbench::ToolBarGroups", "Select without pointing at anything")),
      {groups.one(SelectionCommand::idOf(SelectAll)), groups.one(SelectionCommand::idOf(InvertSelection))});
  groups.fill(*controller.ActionPanelGroup(),
              {groups.group("Modes"),
               groups.panel("PanelEdit", {smoothing, groups.one<DecimateMeshCommand>(), selecting}),
               groups.panel("PanelCamera", {groups.one<SetPivotCommand>()})});

  groups.fill(*controller.DynamicToolPanelGroup(), {controller.selectionCommands().group()});
}

} // namespace Workbench
