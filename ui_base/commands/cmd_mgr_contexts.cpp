// SPDX-License-Identifier: MIT
#include "cmd_mgr_p.h"
#include "command_base.h"
#include "command_group.h"
#include "command_walk.h"
#include "context_foresight.h"

#include <tqm_mesh_kernel/dispatch.h>

#include <QScopeGuard>
#include <QScopedValueRollback>

#include <array>
#include <utility>

namespace Vela::UiBase {

using Taren::Core::dispatchAsync;
using Taren::Core::dispatchSync;
using Taren::Core::isMainThread;
using Taren::Core::MainThreadQoS;

namespace {

CommandState defaultState(CommandBase& command) { return command.defaultCommandState(); }
CommandState disabledState(CommandBase&) { return {State::Off, State::Keep}; }
CommandState inactiveState(CommandBase&) { return {State::Keep, State::Off}; }
CommandState presentState(CommandBase& command) { return command.commandState(); }

CommandContext contextOfBag(const CommandBag& bag, CommandState (*stateOf)(CommandBase&)) {
  CommandContext context;
  visitCommands(bag, [&](CommandBase& command) {
    // Of several commands under one identifier the first counts, as in look-ups.
    if (const QString id = command.commandId(); !context.contains(id))
      context.overwrite(id, stateOf(command));
  });
  return context;
}

CommandContext checkedOnly(const CommandContext& context) {
  CommandContext checked;
  for (auto it = context.get().cbegin(); it != context.get().cend(); ++it) {
    if (it->checked == State::On)
      checked.overwrite(it.key(), it.value());
  }
  return checked;
}

template <class Gather>
CommandContext onMainThread(const Gather& gather) {
  CommandContext context;
  dispatchSync([&] { context = gather(); }, MainThreadQoS);
  return context;
}

} // namespace

CommandContext CmdMgr::contextOf(const QString& id, StateOf stateOf) const {
  CommandBase* const command = findCommand(id);
  if (auto* const group = dynamic_cast<CommandGroup*>(command))
    return contextOfBag(group->commandBag(), stateOf);
  CommandContext context;
  if (command)
    context.overwrite(id, stateOf(*command));
  return context;
}

CommandContext CmdMgr::defaultContext(CommandBag* bag) const {
  return contextOfBag(bag ? *bag : d->bag, defaultState);
}

CommandContext CmdMgr::disabledContext(CommandBag* bag) const {
  return contextOfBag(bag ? *bag : d->bag, disabledState);
}

CommandContext CmdMgr::disabledContext(const QString& id) const { return contextOf(id, disabledState); }

CommandContext CmdMgr::inactiveContext(CommandBag* bag) const {
  return contextOfBag(bag ? *bag : d->bag, inactiveState);
}

CommandContext CmdMgr::inactiveContext(const QString& id) const { return contextOf(id, inactiveState); }

CommandContext CmdMgr::currentContext(CommandBag* bag) const {
  return onMainThread([&] { return contextOfBag(bag ? *bag : d->bag, presentState); });
}

CommandContext CmdMgr::currentContext(const QString& id) const {
  return onMainThread([&] { return contextOf(id, presentState); });
}

CommandContext CmdMgr::currentContext(const CommandContext& context) const {
  return onMainThread([&] {
    CommandContext present;
    for (auto it = context.get().cbegin(); it != context.get().cend(); ++it) {
      if (CommandBase* const command = findCommand(it.key()))
        present.overwrite(it.key(), command->commandState());
    }
    return present;
  });
}

CommandContext CmdMgr::currentActiveContext(CommandBag* bag) const {
  return checkedOnly(currentContext(bag));
}

CommandContext CmdMgr::currentActiveContext(const QString& id) const {
  return checkedOnly(currentContext(id));
}

void CmdMgr::setContext(const CommandContext& context) {
  const std::weak_ptr<CmdMgr> weak = shared_from_this();
  layOverArrived();
  const auto pending = std::make_shared<PendingContext>(context);
  d->pending.append(pending);
  const auto apply = [weak, pending] {
    if (const auto self = weak.lock())
      self->applyPending(pending);
    else
      pending->applyToKept();
  };
  if (!dispatchAsync(apply, MainThreadQoS))
    d->pending.removeOne(pending);
}

void CmdMgr::applyPending(const std::shared_ptr<PendingContext>& pending) {
  layOverArrived(); // before what is pending reaches them
  // An older context that is half applied, by a command that turns an event loop, comes first.
  while (d->pending.contains(pending) && d->pending.constFirst() != pending)
    applyPending(std::shared_ptr(d->pending.constFirst()));
  const auto done = qScopeGuard([&] { d->pending.removeOne(pending); });
  const QScopedValueRollback applying(d->applying, true);
  while (!pending->isEmpty())
    applySome(*pending);
  pending->applyToKept();
}

// Commands are looked up, and read, many at a time: they stand far apart in memory, and so the processor
// waits for several at once instead of for one after the other. But a command may run on being toggled, and
// then push a context or change the registry. So each entry is taken when its turn comes, what is left stays
// pending, and what was looked up counts only until a bag changes.
void CmdMgr::applySome(PendingContext& pending) {
  struct LookedUp {
    PendingContext::Entries::const_iterator entry;
    CommandIndex::Found found;
  };
  std::array<LookedUp, 32> some;
  std::size_t count = 0;
  const quint64 revision = CommandIndex::revision();
  for (auto entry = pending.begin(); entry != pending.end() && count < some.size(); ++entry)
    some.at(count++) = {entry, d->index.find(d->bag, entry.key())};
  for (std::size_t i = 0; i < count && revision == CommandIndex::revision(); ++i) {
    if (const CommandBase* const command = some.at(i).found.command)
      static_cast<void>(command->isEnabled());
  }
  for (std::size_t i = 0; i < count && !pending.isEmpty(); ++i) {
    const auto entry = pending.take();
    const bool counts = revision == CommandIndex::revision() && entry == some.at(i).entry;
    if (const auto command = counts ? some.at(i).found.lock() : findShared(entry.key()))
      command->setCommandState(attainable(*command, entry.value()));
  }
}

void CmdMgr::keepPendingCommands() {
  for (const auto& pending : std::as_const(d->pending))
    pending->keepCommands([this](const QString& id) { return findShared(id); });
}

// The states as they will be when what is pending has been applied.
CommandContext CmdMgr::presentContext() const {
  return onMainThread([&] {
    CommandContext present = contextOfBag(d->bag, presentState);
    for (const auto& pending : std::as_const(d->pending)) {
      for (auto entry = pending->begin(); entry != pending->end(); ++entry) {
        if (const CommandBase* const command = findCommand(entry.key()))
          foresee(present, *command, entry.value());
      }
    }
    return present;
  });
}

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
  if (!d->layers.contains(layer))
    return;
  layOverArrived();
  if (const CommandContext changed = d->layers.release(layer); !changed.isEmpty())
    setContext(changed);
}

bool CmdMgr::hasLayer(quint64 layer) const { return d->layers.contains(layer); }

void CmdMgr::popContext() {
  if (d->layers.isEmpty())
    return;
  layOverArrived();
  setContext(d->layers.pop());
}

void CmdMgr::resetContext() {
  d->layers.clear();
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

bool CmdMgr::isApplyingContext() const { return d->applying; }

} // namespace Vela::UiBase
