// SPDX-License-Identifier: MIT
#include "cmd_mgr_p.h"
#include "command_base.h"
#include "command_walk.h"
#include "context_foresight.h"

#include <tqm_mesh_kernel/dispatch.h>
#include <ui_base/tooltips/tooltip_reason.h>

#include <utility>

namespace Vela::UiBase {

using Taren::Core::dispatchAsync;
using Taren::Core::dispatchSync;
using Taren::Core::isMainThread;
using Taren::Core::MainThreadQoS;

namespace {

// Who holds a command that was removed under a layer shall be able to use it when the layer has ended.
void enableDeparted(CmdMgrPrivate& manager, const CommandContext& restored) {
  for (const auto& weak : std::as_const(manager.departed)) {
    const auto command = manager.pending.isEmpty() ? nullptr : weak.lock();
    const QString id = command ? command->commandId() : QString();
    if (restored.contains(id) && manager.index.find(manager.bag, id).command != command.get())
      manager.pending.constLast()->keep(command, {restored[id].enabled, State::Keep});
  }
  if (manager.layers.isEmpty())
    manager.departed.clear();
}

} // namespace

// Of the commands asked for that are in no bag, which an application's group may know.
CommandContext CmdMgr::statesBeside(const CommandContext& present, const CommandContext& asked) const {
  CommandContext beside;
  auto listed = present.get().cbegin();
  const auto end = present.get().cend();
  for (auto entry = asked.get().cbegin(); entry != asked.get().cend(); ++entry) {
    while (listed != end && listed.key() < entry.key())
      ++listed;
    if (listed != end && listed.key() == entry.key())
      continue;
    if (CommandBase* const command = findCommand(entry.key()))
      beside.overwrite(entry.key(), command->commandState());
  }
  for (const auto& pending : std::as_const(d->pending)) {
    for (auto entry = pending->begin(); entry != pending->end() && !beside.isEmpty(); ++entry) {
      if (beside.contains(entry.key()))
        foresee(beside, *findCommand(entry.key()), entry.value());
    }
  }
  return beside;
}

QList<ContextLayer> CmdMgr::layers() const { return d->layers.describe(); }

quint64 CmdMgr::pushLayer(const CommandContext& context, const ContextHolder& holder, bool isHeld) {
  const std::shared_ptr<CmdMgr> self = shared_from_this();
  quint64 layer = 0;
  dispatchSync(
      [&] {
        layOverArrived();
        const CommandContext present = presentContext();
        AskedContext asked{context, {}};
        for (auto entry = context.get().cbegin(); entry != context.get().cend(); ++entry) {
          const CommandBase* const command =
              entry->checked == State::Keep ? nullptr : findCommand(entry.key());
          if (command && command->isCheckable())
            addFollowing(asked.following, *command);
        }
        layer = d->layers.push(present, statesBeside(present, context), std::move(asked), holder, isHeld);
        TooltipReason::refresh();
        setContext(context);
      },
      MainThreadQoS);
  return layer;
}

void CmdMgr::pushContext(const CommandContext& context) { pushLayer(context, {}, false); }

ContextHold CmdMgr::holdContext(const CommandContext& context, const ContextHolder& holder) {
  const quint64 layer = pushLayer(context, holder, true);
  return ContextHold(sharedOrEmpty(), layer, holder);
}

void CmdMgr::releaseLayer(quint64 layer) {
  if (!isMainThread()) {
    dispatchAsync(
        [weak = std::weak_ptr<CmdMgr>(sharedOrEmpty()), layer] {
          if (const auto self = weak.lock())
            self->releaseLayer(layer);
        },
        MainThreadQoS);
    return;
  }
  // A manager that is being destroyed lets go of commands, and so of what they hold.
  if (!sharedOrEmpty() || !d->layers.contains(layer))
    return;
  layOverArrived();
  TooltipReason::refresh();
  if (const CommandContext changed = d->layers.release(layer); !changed.isEmpty()) {
    setContext(changed);
    enableDeparted(*d, changed);
  }
}

bool CmdMgr::hasLayer(quint64 layer) const { return d->layers.contains(layer); }

void CmdMgr::popContext() {
  if (d->layers.isEmpty())
    return;
  layOverArrived();
  TooltipReason::refresh();
  const CommandContext restored = d->layers.pop();
  setContext(restored);
  enableDeparted(*d, restored);
}

void CmdMgr::resetContext() {
  d->layers.clear();
  d->departed.clear();
  TooltipReason::refresh();
  setContext(defaultContext());
}

void CmdMgr::updateContextInStack(const QString& id, const CommandState& state) {
  if (!id.isEmpty())
    d->layers.update(id, state);
}

const QList<CommandContext>& CmdMgr::contextStack() const { return d->layers.saved(); }

void CmdMgr::setGroundState(const QString& id, const CommandState& state, const QString& reason) {
  if (state.enabled == State::Off && !reason.isEmpty())
    d->groundReasons.insert(id, reason);
  else if (state.enabled != State::Keep)
    d->groundReasons.remove(id);
  TooltipReason::refresh();
  layOverArrived();
  CommandContext changed;
  changed.overwrite(id, state);
  if (d->layers.isEmpty()) {
    setContext(changed);
    return;
  }
  const CommandBase* const command = findCommand(id);
  if (command && command->isCheckable() && state.checked != State::Keep) {
    const CommandContext before = d->layers.ground();
    CommandContext ground = before;
    foresee(ground, *command, state);
    for (auto entry = ground.get().cbegin(); entry != ground.get().cend(); ++entry) {
      if (entry.key() != id && !(entry->checked == before[entry.key()].checked))
        changed.overwrite(entry.key(), {State::Keep, entry->checked});
    }
  }
  setContext(d->layers.setGround(changed));
}

CommandState CmdMgr::groundState(const QString& id) const {
  CommandBase* const command = findCommand(id);
  return command ? d->layers.groundState(id, command->commandState()) : CommandState();
}

QString CmdMgr::groundReason(const QString& id) const { return d->groundReasons.value(id); }

QList<ContextHolder> CmdMgr::holdersDisabling(const QString& id) const { return d->layers.disabling(id); }

void CmdMgr::childArrived(CommandBase& child) {
  std::vector<std::weak_ptr<CommandBase>> arrived;
  if (!d->layers.isEmpty())
    visitWithin(child, [&](CommandBase& command) { arrived.push_back(command.sharedOrEmpty()); });
  bringUnderLayers(arrived);
}

std::vector<std::weak_ptr<CommandBase>> CmdMgr::newcomersIn(CommandBase& command) const {
  std::vector<std::weak_ptr<CommandBase>> newcomers;
  if (d->layers.isEmpty())
    return newcomers;
  visitWithin(command, [&](CommandBase& candidate) {
    if (!stands(candidate))
      newcomers.push_back(candidate.sharedOrEmpty());
  });
  return newcomers;
}

void CmdMgr::bringUnderLayers(const std::vector<std::weak_ptr<CommandBase>>& newcomers) {
  if (newcomers.empty())
    return;
  d->arrived.insert(d->arrived.end(), newcomers.begin(), newcomers.end());
  dispatchAsync(
      [weak = std::weak_ptr<CmdMgr>(sharedOrEmpty())] {
        if (const auto self = weak.lock())
          self->layOverArrived();
      },
      MainThreadQoS);
}

// As late as a context allows: who adds a command may give it its state right after.
void CmdMgr::layOverArrived() {
  const auto arrived = std::exchange(d->arrived, {});
  if (arrived.empty() || d->layers.isEmpty())
    return;
  CommandContext now = presentContext();
  QStringList ids;
  for (const auto& weak : arrived) {
    const auto command = weak.lock();
    if (!command || findCommand(command->commandId()) != command.get())
      continue;
    ids.append(command->commandId());
    now.overwrite(command->commandId(), command->commandState());
  }
  const auto lay = [&](CommandContext& states, const QString& id, const CommandState& state) {
    const CommandBase& command = *findCommand(id);
    foresee(states, command, state);
    QSet<QString> following;
    if (state.checked != State::Keep && command.isCheckable())
      addFollowing(following, command);
    return following;
  };
  if (const CommandContext named = d->layers.layOver(ids, now, lay); !named.isEmpty())
    setContext(named);
}

} // namespace Vela::UiBase
