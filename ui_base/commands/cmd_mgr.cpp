// SPDX-License-Identifier: MIT
#include "cmd_mgr_p.h"
#include "command_base.h"
#include "command_group.h"
#include "command_ref.h"
#include "command_walk.h"
#include "flyout_command.h"

#include <stdexcept>
#include <utility>

template class Taren::Objects::SharedObject<Vela::UiBase::CmdMgr>;

namespace Vela::UiBase {

namespace {

std::vector<CommandRef> flyoutsIn(CommandBase& command) {
  std::vector<CommandRef> flyouts;
  visitWithin(command, [&](CommandBase& candidate) {
    if (dynamic_cast<FlyoutCommand*>(&candidate))
      flyouts.emplace_back(candidate);
  });
  return flyouts;
}

// While they are still heard: an open one would never end otherwise.
void endFlyouts(const std::vector<CommandRef>& flyouts) {
  for (const CommandRef& flyout : flyouts) {
    if (auto* const command = dynamic_cast<FlyoutCommand*>(flyout.get()))
      command->onExitCommand();
    if (auto* const command = dynamic_cast<FlyoutCommand*>(flyout.get()))
      command->onFinalize();
  }
}

} // namespace

CmdMgr::CmdMgr() : d(std::make_unique<CmdMgrPrivate>()) {}

CmdMgr::~CmdMgr() {
  beginDestruction();
  keepPendingCommands();
  for (const auto& pending : std::as_const(d->pending))
    pending->orphan();
  dropCommands();
}

// While a command that dies of it can still look others up.
void CmdMgr::dropCommands() {
  std::vector<CommandRef> begun;
  for (const auto& command : std::as_const(d->begun)) {
    if (command)
      begun.emplace_back(*command);
  }
  endFlyouts(begun);
  d->bag.clear();
}

CommandBase* CmdMgr::addCommand(CommandBase* command) {
  if (!command)
    return nullptr;
  if (command->commandId().isEmpty())
    throw std::logic_error("A command id must be defined (with the COMMAND_ID macro)!");
  const std::shared_ptr<CmdMgr> self = shared_from_this();
  const auto shared = Taren::Objects::adoptShared(command);
  const auto newcomers = newcomersIn(*command);

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
  if (result == shared)
    bringUnderLayers(newcomers);
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
    d->begun.removeOne(&left);
    if (!d->layers.isEmpty())
      d->departed.push_back(left.sharedOrEmpty());
    commandForgotten(left);
  };
  visitWithin(command, forgetUnlessHere);
}

bool CmdMgr::removeCommand(const QString& id) { return removeCommand(findCommand(id)); }

bool CmdMgr::removeCommand(CommandBase* command) {
  if (!command || !stands(*command))
    return false;
  const std::shared_ptr<CmdMgr> self = sharedOrEmpty();
  const auto kept = command->sharedOrEmpty();
  endFlyouts(flyoutsIn(*command));
  const QString id = command->commandId();
  if (!takeOut(*command))
    return false;
  letGo(*command);
  tellRemoved(id);
  return true;
}

// From wherever it stands: a command may be a child of several groups.
bool CmdMgr::takeOut(CommandBase& command) {
  bool taken = d->bag.removeCommand(&command);
  QList<QPointer<CommandGroup>> groups;
  for (CommandGroup* const group : command.holdingGroups())
    groups.append(group);
  for (const auto& group : std::as_const(groups)) {
    if (group && stands(*group) && group->removeCommand(&command))
      taken = true;
  }
  return taken;
}

void CmdMgr::removeAllCommands() {
  const std::shared_ptr<CmdMgr> self = sharedOrEmpty(); // a delegate may let go of the manager
  std::vector<CommandRef> flyouts;
  for (int i = 0; i < d->bag.count(); ++i) {
    const auto inside = flyoutsIn(*d->bag.commandAt(i));
    flyouts.insert(flyouts.end(), inside.begin(), inside.end());
  }
  endFlyouts(flyouts);
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
  const CommandBag& asked = bag ? *bag : d->bag;
  QVector<CommandBase*> found;
  for (int i = 0; i < asked.count() && asked.hasCommand(id); ++i) {
    if (asked.commandAt(i)->commandId() == id)
      found.append(asked.commandAt(i));
  }
  return found;
}

bool CmdMgr::stands(const CommandBase& command) const {
  CommandBase* const first = findCommand(command.commandId());
  bool found = first == &command;
  if (first && !found)
    visitCommands(d->bag, [&](const CommandBase& standing) { found = found || &standing == &command; });
  return found;
}

void CmdMgr::commandBegan(CommandBase* command) {
  d->running = command ? command->sharedOrEmpty() : nullptr;
  if (command && !d->begun.contains(command))
    d->begun.append(command);
}

void CmdMgr::commandEnded(CommandBase* command) {
  d->running.reset();
  d->begun.removeIf([command](const auto& begun) { return !begun || begun == command; });
}

std::shared_ptr<CommandBase> CmdMgr::runningCommand() const { return d->running.lock(); }

const CommandBag& CmdMgr::commandBag() const { return d->bag; }

CommandBag& CmdMgr::commandBag() { return d->bag; }

} // namespace Vela::UiBase
