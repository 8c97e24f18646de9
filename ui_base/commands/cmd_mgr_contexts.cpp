// SPDX-License-Identifier: MIT
#include "call_failure.h"
#include "cmd_mgr_p.h"
#include "command_base.h"
#include "command_group.h"
#include "command_walk.h"
#include "context_foresight.h"
#include "context_walk.h"

#include <tqm_mesh_kernel/dispatch.h>

#include <QScopeGuard>
#include <QScopedValueRollback>

#include <utility>

namespace Vela::UiBase {

using Taren::Core::dispatchAsync;
using Taren::Core::dispatchSync;
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
    if (const auto self = pending->isOrphaned() ? nullptr : weak.lock())
      self->applyPending(pending);
    else
      pending->applyToKept();
  };
  if (!dispatchAsync(apply, MainThreadQoS))
    d->pending.removeOne(pending);
}

void CmdMgr::applyPending(const std::shared_ptr<PendingContext>& pending) {
  layOverArrived(); // before what is pending reaches them
  FirstFailure failure;
  // An older context that is half applied, by a command that turns an event loop, comes first.
  while (d->pending.contains(pending) && d->pending.constFirst() != pending)
    failure.guard([this] { applyPending(std::shared_ptr(d->pending.constFirst())); });
  const auto done = qScopeGuard([&] { d->pending.removeOne(pending); });
  const QScopedValueRollback applying(d->applying, true);
  // A command may run on being toggled, and then push a context or change the registry. So each entry is
  // taken when its turn comes, and what is left stays pending.
  ContextWalk walk(d->index, d->bag, pending->size());
  while (!pending->isEmpty()) {
    const auto entry = pending->take();
    if (CommandBase* const command = walk.next(entry.key()))
      failure.guard([&] { command->setCommandState(attainable(*command, entry.value())); });
  }
  failure.guard([&] { pending->applyToKept(); });
  failure.rethrow();
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

bool CmdMgr::isApplyingContext() const { return d->applying; }

} // namespace Vela::UiBase
