// SPDX-License-Identifier: MIT
#include "command_group_p.h"
#include "command_ref.h"
#include "command_walk.h"

#include <QActionGroup>

namespace Vela::UiBase {

namespace {

bool holds(const CommandBase& command, const CommandBase& other) {
  const auto* const group = dynamic_cast<const CommandGroup*>(&command);
  bool found = false;
  if (group)
    visitCommands(group->commandBag(), [&](const CommandBase& below) { found = found || &below == &other; });
  return found;
}

} // namespace

CommandBase* CommandGroup::addCommand(const std::shared_ptr<CommandBase>& command, int rank) {
  if (!command || refuses(*command))
    return nullptr;
  const CommandRef self(*this);
  setCommandRank(command->commandId(), rank); // who hears that others moved may add it too
  if (!self.get() || !d->bag.insertCommand(positionOf(rank), command))
    return nullptr;
  attachChild(*command);
  d->observers.tellArrived(*command);
  showOnButton();
  if (self.get() && command->isChecked())
    showChildren();
  if (self.get())
    Q_EMIT childrenChanged();
  return command.get();
}

// Behind those of the same rank.
int CommandGroup::positionOf(int rank) const {
  int position = d->bag.count();
  while (position > 0 && getCommandRank(d->bag.commandAt(position - 1)->commandId()) > rank)
    --position;
  return position;
}

// Who is refused is not taken into ownership, and so not deleted.
CommandBase* CommandGroup::addCommand(CommandBase* command, int rank) {
  if (!command || refuses(*command))
    return nullptr;
  return addCommand(Taren::Objects::adoptShared(command), rank);
}

bool CommandGroup::refuses(const CommandBase& command) const {
  return &command == this || d->bag.contains(&command) || holds(command, *this);
}

bool CommandGroup::removeCommand(const QString& id) { return removeCommand(d->bag.getCommand(id)); }

bool CommandGroup::removeCommand(const CommandBase* child) {
  for (int i = 0; i < d->bag.count(); ++i) {
    if (d->bag.commandAt(i) != child)
      continue;
    const CommandRef self(*this);
    const auto command = takeCommand(i);
    showOnButton();
    if (self.get() && command->isChecked())
      showChildren();
    if (self.get())
      Q_EMIT childrenChanged();
    return true;
  }
  return false;
}

std::shared_ptr<CommandBase> CommandGroup::takeCommand(int position) {
  auto command = d->bag.sharedCommandAt(position);
  detachChild(*command);
  d->bag.removeCommand(command.get());
  if (const QString id = command->commandId(); !d->bag.hasCommand(id))
    d->ranks.remove(id);
  return command;
}

void CommandGroup::absorbCommandGroup(CommandGroup* other) {
  if (!other || other == this || holds(*other, *this))
    return;
  const CommandRef self(*this);
  const CommandRef absorbed(*other);
  const CommandBag children = other->d->bag; // who hears of what moves may change the groups
  for (int i = 0; i < children.count() && self.get() && absorbed.get(); ++i) {
    CommandBase* const child = children.commandAt(i);
    const QString id = child->commandId();
    if (!other->d->bag.contains(child))
      continue;
    if (!d->bag.hasCommand(id)) {
      const int rank = other->getCommandRank(id);
      other->removeCommand(child);
      if (self.get())
        addCommand(children.sharedCommandAt(i), rank);
      continue;
    }
    auto* const ownGroup = dynamic_cast<CommandGroup*>(d->bag.getCommand(id));
    if (auto* const otherGroup = dynamic_cast<CommandGroup*>(child); ownGroup && otherGroup)
      ownGroup->absorbCommandGroup(otherGroup);
  }
}

void CommandGroup::attachChild(CommandBase& child) {
  child.enterGroup(*this);
  if (child.isCheckable())
    d->actionGroup->addAction(&child);
  connect(&child, &CommandBase::toBeTriggered, this, &CommandGroup::onChildToBeTriggered);
  connect(&child, &CommandBase::toBeToggled, this, &CommandGroup::onChildToBeTriggered);
  connect(&child, &QAction::triggered, this, &CommandGroup::showChildren);
  connect(&child, &QAction::toggled, this, &CommandGroup::showChildren);
  connect(&child, &QAction::changed, this, &CommandGroup::onChildChanged);
  d->observers.observe(child);
}

// One by one, as the child may have other connections with the group.
void CommandGroup::detachChild(CommandBase& child) {
  disconnect(&child, &CommandBase::toBeTriggered, this, &CommandGroup::onChildToBeTriggered);
  disconnect(&child, &CommandBase::toBeToggled, this, &CommandGroup::onChildToBeTriggered);
  disconnect(&child, &QAction::triggered, this, &CommandGroup::showChildren);
  disconnect(&child, &QAction::toggled, this, &CommandGroup::showChildren);
  disconnect(&child, &QAction::changed, this, &CommandGroup::onChildChanged);
  d->actionGroup->removeAction(&child);
  child.leaveGroup(*this);
  d->observers.stopObserving(child);
  leaveToOtherGroups(child);
}

// What the child still has from other groups that hold it.
void CommandGroup::leaveToOtherGroups(CommandBase& child) const {
  const QList<CommandGroup*> groups = child.holdingGroups();
  for (const CommandGroup* const group : groups) {
    if (group != this)
      group->d->observers.observe(child);
  }
  if (child.isCheckable() && !child.actionGroup() && !groups.isEmpty())
    groups.constLast()->d->actionGroup->addAction(&child);
}

int CommandGroup::getCommandRank(const QString& id) const { return d->ranks.value(id, 0); }

void CommandGroup::setCommandRank(const QString& id, int rank) {
  const bool moves = getCommandRank(id) != rank && d->bag.hasCommand(id);
  d->ranks.insert(id, rank);
  if (!moves)
    return;
  const CommandBag before = d->bag;
  for (int i = 0; i < before.count(); ++i) {
    const auto child = before.sharedCommandAt(i);
    if (child->commandId() == id && d->bag.removeCommand(child.get()))
      d->bag.insertCommand(positionOf(rank), child);
  }
  Q_EMIT childrenChanged();
}

} // namespace Vela::UiBase
