// SPDX-License-Identifier: MIT
#include "cmd_mgr.h"

#include "command_base.h"
#include "command_group.h"

#include <QScopedValueRollback>

#include <stdexcept>
#include <utility>
#include <vector>

template class Taren::Objects::SharedObject<Vela::UiBase::CmdMgr>;

namespace Vela::UiBase {

using Taren::Core::dispatchAsync;
using Taren::Core::dispatchSync;
using Taren::Core::MainThreadQoS;

/// A context handed over to be applied. Its commands are looked up when that happens; references are kept
/// only when the registry is emptied before.
struct CmdMgr::PendingContext {
  CommandContext context;
  bool registryEmptied = false;
  std::vector<std::pair<std::weak_ptr<CommandBase>, CommandState>> commands;

  void applyToKept() const {
    for (const auto& [weak, state] : commands) {
      if (const auto command = weak.lock())
        command->setCommandState(state);
    }
  }
};

class CmdMgrPrivate {
public:
  CommandBag bag;
  QList<CommandContext> stack; // bottom first
  std::weak_ptr<CommandBase> running;
  QList<std::shared_ptr<CmdMgr::PendingContext>> pending; // oldest first
  bool applying = false;
};

namespace {

CommandState defaultState(CommandBase& command) { return command.defaultCommandState(); }
CommandState disabledState(CommandBase&) { return {State::Off, State::Keep}; }
CommandState inactiveState(CommandBase&) { return {State::Keep, State::Off}; }
CommandState presentState(CommandBase& command) { return command.commandState(); }

/// Calls @p visit with every command of a bag, those inside its groups included.
template <class Visitor>
void visitCommands(const CommandBag& bag, const Visitor& visit) {
  for (int i = 0; i < bag.count(); ++i) {
    CommandBase& command = *bag.commandAt(i);
    visit(command);
    if (auto* const group = dynamic_cast<CommandGroup*>(&command))
      visitCommands(std::as_const(*group).commandBag(), visit);
  }
}

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
}

CommandBase* CmdMgr::addCommand(CommandBase* command) {
  if (!command)
    return nullptr;
  if (command->commandId().isEmpty())
    throw std::logic_error("A command id must be defined (with the COMMAND_ID macro)!");
  const std::shared_ptr<CmdMgr> self = shared_from_this();
  const auto shared = Taren::Objects::adoptShared(command);
  const auto* const group = dynamic_cast<CommandGroup*>(command);
  if (group && d->bag.getCommand(command->commandId()) == command)
    return command; // it would absorb itself

  CommandBase* result = nullptr;
  if (group)
    result = addGroup(shared);
  else if (d->bag.addCommand(shared))
    result = command;
  if (!result)
    return nullptr;

  delegate([self, added = result->shared_from_this()](CmdMgrProtocol* observer) {
    observer->commandAdded(self.get(), added.get());
  });
  if (result == command) // the group that absorbed the command is observed already
    result->addObserver(self, false);
  return result;
}

CommandBase* CmdMgr::addGroup(const std::shared_ptr<CommandBase>& command) {
  auto& group = static_cast<CommandGroup&>(*command);
  takeIn(group.commandBag());
  if (auto* const registered = dynamic_cast<CommandGroup*>(d->bag.getCommand(group.commandId()))) {
    registered->absorbCommandGroup(&group);
    return registered;
  }
  return d->bag.addCommand(command) ? &group : nullptr;
}

// A command never stands both at the top level and inside a group; it is observed through the group from now
// on.
void CmdMgr::takeIn(CommandBag& children) {
  visitCommands(children, [this](CommandBase& child) {
    const QString id = child.commandId();
    while (const auto topLevel = d->bag.getSharedCommand(id)) {
      topLevel->removeObserver(shared_from_this());
      d->bag.removeCommand(id);
    }
  });
}

bool CmdMgr::removeCommand(const QString& id) { return removeCommand(findCommand(id)); }

bool CmdMgr::removeCommand(CommandBase* command) {
  if (!command)
    return false;
  const auto kept = command->sharedOrEmpty();
  const QString id = command->commandId();
  if (d->bag.removeCommand(command)) {
    forget(kept, id);
    return true;
  }
  CommandGroup* const group = command->commandGroup();
  if (!group || findCommand(id) != command || !group->removeCommand(id))
    return false;
  forget(kept, id);
  return true;
}

void CmdMgr::removeAllCommands() {
  keepPendingCommands();
  const CommandBag removed = d->bag;
  d->bag.clear();
  for (int i = 0; i < removed.count(); ++i)
    forget(removed.sharedCommandAt(i), removed.commandAt(i)->commandId());
}

void CmdMgr::forget(const std::shared_ptr<CommandBase>& command, const QString& id) {
  const std::shared_ptr<CmdMgr> self = shared_from_this();
  command->removeObserver(self);
  commandForgotten(*command);
  if (auto* const group = dynamic_cast<CommandGroup*>(command.get()))
    visitCommands(group->commandBag(), [this](CommandBase& child) { commandForgotten(child); });
  delegate([self, id](CmdMgrProtocol* observer) { observer->commandRemoved(self.get(), id); });
}

void CmdMgr::commandForgotten(CommandBase&) {}

CommandBase* CmdMgr::findCommand(const QString& id) const {
  if (CommandBase* const command = d->bag.getCommand(id))
    return command;
  for (CommandGroup* const group : d->bag.groups()) {
    if (CommandBase* const command = group->getCommand(id))
      return command;
  }
  return nullptr;
}

std::shared_ptr<CommandBase> CmdMgr::findShared(const QString& id) const {
  if (auto command = d->bag.getSharedCommand(id))
    return command;
  CommandBase* const command = findCommand(id);
  return command ? command->sharedOrEmpty() : nullptr;
}

QVector<CommandBase*> CmdMgr::findCommands(const QString& id, CommandBag* bag) const {
  QVector<CommandBase*> found;
  visitCommands(bag ? *bag : d->bag, [&](CommandBase& command) {
    if (command.commandId() == id)
      found.append(&command);
  });
  return found;
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
  const auto pending = std::make_shared<PendingContext>(PendingContext{context, false, {}});
  d->pending.append(pending);
  const auto apply = [weak, pending] {
    if (const auto self = weak.lock())
      self->applyPending(*pending);
    else
      pending->applyToKept();
  };
  if (!dispatchAsync(apply, MainThreadQoS))
    d->pending.removeOne(pending);
}

void CmdMgr::applyPending(PendingContext& pending) {
  d->pending.removeIf([&pending](const auto& other) { return other.get() == &pending; });
  const QScopedValueRollback applying(d->applying, true);
  if (pending.registryEmptied) {
    pending.applyToKept();
    return;
  }
  const auto& states = pending.context.get();
  for (auto it = states.cbegin(); it != states.cend(); ++it) {
    if (const auto command = findShared(it.key()))
      command->setCommandState(it.value());
  }
}

void CmdMgr::keepPendingCommands() {
  for (const auto& pending : std::as_const(d->pending)) {
    if (std::exchange(pending->registryEmptied, true))
      continue;
    const auto& states = pending->context.get();
    for (auto it = states.cbegin(); it != states.cend(); ++it)
      pending->commands.emplace_back(findShared(it.key()), it.value());
  }
}

// The states as they will be when what is pending has been applied.
CommandContext CmdMgr::presentContext() const {
  return onMainThread([&] {
    CommandContext present = contextOfBag(d->bag, presentState);
    for (const auto& pending : d->pending) {
      const auto& states = pending->context.get();
      for (auto it = states.cbegin(); it != states.cend(); ++it) {
        CommandBase* const command = findCommand(it.key());
        if (!command)
          continue;
        CommandState& entry = present[it.key()];
        entry.enabled = it->enabled;
        if (command->isCheckable())
          entry.checked = it->checked;
      }
    }
    return present;
  });
}

void CmdMgr::pushContext(const CommandContext& context) {
  d->stack.append(presentContext());
  setContext(context);
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
