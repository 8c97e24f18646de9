// SPDX-License-Identifier: MIT
// Which commands of a MeshViewController can be used, and why the others cannot.
#include <tqm_mesh_kernel/dispatch.h>
#include <ui_base/commands/command_group.h>
#include <workbench/commands/mesh_user.h>
#include <workbench/mesh_view_controller.h>

namespace Workbench {

using namespace Vela::UiBase;
using Taren::Core::dispatchAsync;
using Taren::Core::MainThreadQoS;

void MeshViewController::addObstacles(const CommandBag& bag, Obstacles& obstacles) const {
  for (int i = 0; i < bag.count(); ++i) {
    const CommandBase* const command = bag.commandAt(i);
    if (const auto* const own = dynamic_cast<const MeshUser*>(command)) {
      const bool hasPage = m_pageShown || !own->needsMeshPage();
      obstacles[command->commandId()] = hasPage ? own->obstacle() : tr("The page of the mesh is not shown.");
    } else if (const auto* const group = dynamic_cast<const CommandGroup*>(command)) {
      addObstacles(group->commandBag(), obstacles);
    }
  }
}

MeshViewController::Obstacles MeshViewController::obstacles() const {
  Obstacles obstacles;
  addObstacles(commandBag(), obstacles);
  return obstacles;
}

CommandContext MeshViewController::availability() const {
  CommandContext context;
  const Obstacles present = obstacles();
  for (auto it = present.cbegin(); it != present.cend(); ++it)
    context.overwrite(it.key(), {State(it->isEmpty()), State::Keep});
  return context;
}

// The ground is what shall last, with the reason for the tooltip; the context wins over the layers that are
// there just now.
void MeshViewController::applyAvailability() {
  const Obstacles present = obstacles();
  for (auto it = present.cbegin(); it != present.cend(); ++it) {
    const State enabled(it->isEmpty());
    if (!(groundState(it.key()).enabled == enabled) || groundReason(it.key()) != *it)
      setGroundState(it.key(), {enabled, State::Keep}, *it);
  }
  setContext(availability());
}

// Comes after every context that is under way, the ones that a command pops at its end included. So it does
// not matter in which order commands end and modes are switched.
void MeshViewController::refreshCommands() {
  if (!isShared() || std::exchange(m_refreshing, true))
    return;
  dispatchAsync(
      [this, weak = std::weak_ptr<BaseViewController>(shared_from_this())] {
        const auto self = weak.lock();
        if (!self)
          return;
        m_refreshing = false;
        applyAvailability();
      },
      MainThreadQoS);
}

void MeshViewController::viewDidLoad() {
  CmdsViewController::viewDidLoad();
  const CommandContext available = availability();
  const auto& states = available.get();
  for (auto it = states.cbegin(); it != states.cend(); ++it) {
    if (CommandBase* const command = findCommand(it.key()))
      command->setCommandState(it.value());
  }
  refreshCommands(); // with the reasons
}

} // namespace Workbench
