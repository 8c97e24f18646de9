// SPDX-License-Identifier: MIT
#include "cmd_mgr.h"

#include "command_base.h"
#include "command_group.h"
#include "command_index.h"
#include "command_walk.h"
#include "pending_context.h"

#include <tqm_mesh_kernel/dispatch.h>

#include <QScopeGuard>
#include <QScopedValueRollback>

#include <array>
#include <stdexcept>
#include <utility>

template class Taren::Objects::SharedObject<Vela::UiBase::CmdMgr>;

namespace Vela::UiBase {

using Taren::Core::dispatchAsync;
using Taren::Core::dispatchSync;
using Taren::Core::MainThreadQoS;

class CmdMgrPrivate {
public:
  CommandBag bag;
  CommandIndex index;
  QList<CommandContext> stack; // bottom first
  std::weak_ptr<CommandBase> running;
  QList<std::shared_ptr<PendingContext>> pending; // oldest first
  bool applying = false;
};

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

CmdMgr::CmdMgr() : d(std::make_unique<CmdMgrPrivate>()) {}

CmdMgr::~CmdMgr() {
  beginDestruction();
  keepPendingCommands();
  d->bag.clear(); // while a command that dies of it can still look others up
}

CommandBase* CmdMgr::addCommand(CommandBase* command) {
  if (!command)
    return nullptr;
  if (command->commandId().isEmpty())
    throw std::logic_error("A command id must be defined (with the COMMAND_ID macro)!");
  const std::shared_ptr<CmdMgr> self = shared_from_this();
  const auto shared = Taren::Objects::adoptShared(command);

  std::shared_ptr<CommandBase> result;
  if (dynamic_cast<CommandGroup*>(command))
    result = addGroup(shared);
  else if (d->bag.addCommand(shared))
    result = shared;
  if (!result)
    return nullptr;

  delegate([self, result](CmdMgrProtocol* observer) { observer->commandAdded(self.get(), result.get()); });
  if (!d->bag.contains(result.get())) // the delegate removed it again
    return nullptr;
  observe(*result);
  return result.get();
}

std::shared_ptr<CommandBase> CmdMgr::addGroup(const std::shared_ptr<CommandBase>& command) {
  auto& group = static_cast<CommandGroup&>(*command);
  const auto registered = std::dynamic_pointer_cast<CommandGroup>(d->bag.getSharedCommand(group.commandId()));
  takeIn(group.commandBag(), registered.get());
  if (registered) {
    registered->absorbCommandGroup(&group);
    return registered;
  }
  return d->bag.addCommand(command) ? command : nullptr;
}

// A command never stands both at the top level and inside a group; it is observed through the group from now
// on. What a registered group has already, it does not absorb.
void CmdMgr::takeIn(const CommandBag& children, const CommandGroup* registered) {
  visitCommands(children, [this, registered](CommandBase& child) {
    const QString id = child.commandId();
    if (registered && registered->hasCommand(id))
      return;
    while (const auto topLevel = d->bag.getSharedCommand(id)) {
      d->bag.removeCommand(id);
      if (topLevel.get() != &child)
        letGo(*topLevel);
    }
  });
}

// What was absorbed, or also stands in a group, is observed already.
void CmdMgr::observe(CommandBase& command) {
  const std::shared_ptr<CmdMgr> self = sharedOrEmpty();
  command.removeObserver(self);
  command.addObserver(self, false);
}

// What also stands in another place goes on being observed. There is no reference to a manager that is
// being destroyed, but then its observations have ended anyway.
void CmdMgr::letGo(CommandBase& command) {
  command.removeObserver(sharedOrEmpty());
  const auto forgetUnlessHere = [this](CommandBase& left) {
    if (stands(left)) {
      observe(left);
      return;
    }
    if (d->running.lock().get() == &left)
      d->running.reset();
    commandForgotten(left);
  };
  forgetUnlessHere(command);
  if (const auto* const group = dynamic_cast<CommandGroup*>(&command))
    visitCommands(group->commandBag(), forgetUnlessHere);
}

bool CmdMgr::removeCommand(const QString& id) { return removeCommand(findCommand(id)); }

bool CmdMgr::removeCommand(CommandBase* command) {
  if (!command)
    return false;
  const auto kept = command->sharedOrEmpty();
  const QString id = command->commandId();
  if (!d->bag.removeCommand(command)) {
    CommandGroup* const group = command->commandGroup();
    if (!group || !stands(*command) || !group->removeCommand(command))
      return false;
  }
  letGo(*command);
  tellRemoved(id);
  return true;
}

void CmdMgr::removeAllCommands() {
  const std::shared_ptr<CmdMgr> self = sharedOrEmpty(); // a delegate may let go of the manager
  keepPendingCommands();
  const CommandBag removed = d->bag;
  d->bag.clear();
  for (int i = 0; i < removed.count(); ++i) {
    letGo(*removed.commandAt(i));
    tellRemoved(removed.commandAt(i)->commandId());
  }
}

void CmdMgr::tellRemoved(const QString& id) {
  if (const std::shared_ptr<CmdMgr> self = sharedOrEmpty())
    delegate([self, id](CmdMgrProtocol* observer) { observer->commandRemoved(self.get(), id); });
}

void CmdMgr::commandForgotten(CommandBase&) {}

CommandBase* CmdMgr::findCommand(const QString& id) const { return d->index.find(d->bag, id).command; }

std::shared_ptr<CommandBase> CmdMgr::findShared(const QString& id) const {
  return d->index.find(d->bag, id).lock();
}

QVector<CommandBase*> CmdMgr::findCommands(const QString& id, CommandBag* bag) const {
  QVector<CommandBase*> found;
  visitCommands(bag ? *bag : d->bag, [&](CommandBase& command) {
    if (command.commandId() == id)
      found.append(&command);
  });
  return found;
}

bool CmdMgr::stands(const CommandBase& command) const {
  const QString id = command.commandId();
  CommandBase* const first = findCommand(id);
  return first && (first == &command || findCommands(id).contains(&command));
}

void CmdMgr::commandBegan(CommandBase* command) { d->running = command ? command->sharedOrEmpty() : nullptr; }

void CmdMgr::commandEnded(CommandBase*) { d->running.reset(); }

std::shared_ptr<CommandBase> CmdMgr::runningCommand() const { return d->running.lock(); }

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
      command->setCommandState(entry.value());
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

void CmdMgr::pushContext(const CommandContext& context) {
  const std::shared_ptr<CmdMgr> self = shared_from_this();
  dispatchSync(
      [&] {
        d->stack.append(presentContext());
        setContext(context);
      },
      MainThreadQoS);
}

void CmdMgr::popContext() {
  if (!d->stack.isEmpty())
    setContext(d->stack.takeLast());
}

void CmdMgr::resetContext() {
  d->stack.clear();
  setContext(defaultContext());
}

void CmdMgr::updateContextInStack(const QString& id, const CommandState& state) {
  if (id.isEmpty())
    return;
  for (CommandContext& saved : d->stack) {
    if (!saved.contains(id))
      return;
    saved.overwrite(id, state);
  }
}

const QList<CommandContext>& CmdMgr::contextStack() const { return d->stack; }

bool CmdMgr::isApplyingContext() const { return d->applying; }

const CommandBag& CmdMgr::commandBag() const { return d->bag; }

CommandBag& CmdMgr::commandBag() { return d->bag; }

} // namespace Vela::UiBase
