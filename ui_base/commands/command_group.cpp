// SPDX-License-Identifier: MIT
#include "command_group.h"

#include "command_ref.h"
#include "command_walk.h"
#include "group_observers.h"
#include "upstairs.h"

#include <QAbstractButton>
#include <QActionGroup>
#include <QHash>
#include <QScopeGuard>

#include <algorithm>
#include <utility>

namespace Vela::UiBase {

class CommandGroupPrivate {
public:
  CommandBag bag;
  QHash<QString, int> ranks;
  QActionGroup* actionGroup = nullptr; // a child of the group
  bool grid = false;
  int gridSize = 0;
  bool virtualGroup = false;
  bool unchecking = false;
  ToolBar* toolbar = nullptr;
  QPointer<QAbstractButton> toolButton;
  GroupObservers observers;
};

namespace {

template <class Visitor>
void forEachChild(const CommandBag& children, const Visitor& visit) {
  for (int i = 0; i < children.count(); ++i)
    visit(*children.commandAt(i));
}

bool holds(const CommandBase& command, const CommandBase& other) {
  const auto* const group = dynamic_cast<const CommandGroup*>(&command);
  bool found = false;
  if (group)
    visitCommands(group->commandBag(), [&](const CommandBase& below) { found = found || &below == &other; });
  return found;
}

} // namespace

CommandGroup::CommandGroup(const QString& iconName, const QString& toolTip, const QString& name)
    : CommandBase(nullptr), d(std::make_unique<CommandGroupPrivate>()) {
  if (!iconName.isEmpty())
    setIcon(Upstairs::icon(iconName));
  setToolTip(toolTip);
  setObjectName(name);
  setExecutionQoS(Taren::Core::MainThreadQoS);
  setCheckable(true);
  d->actionGroup = new QActionGroup(this);
  // Also when who sets the state takes the group for a plain action.
  connect(this, &QAction::toggled, this, &CommandGroup::showOnButton);
  connect(this, &QAction::enabledChanged, this, &CommandGroup::showOnButton);
}

CommandGroup::~CommandGroup() {
  beginDestruction();
  forEachChild(d->bag, [this](CommandBase& child) { detachChild(child); });
}

QString CommandGroup::className() {
  static const QString name = QString::fromLatin1(staticMetaObject.className());
  return name;
}

QString CommandGroup::commandId() const { return className() + objectName(); }

void CommandGroup::setCommandState(const CommandState& state) {
  if (state.enabled != State::Keep && state.enabled != isEnabled())
    setEnabled(state.enabled);
  if (state.checked != State::Keep && isCheckable() && state.checked != isChecked())
    setChecked(state.checked);
}

bool CommandGroup::onExecute(bool checked) { return CommandBase::onExecute(checked); }

bool CommandGroup::onExecuteAsync(bool) { return true; }

bool CommandGroup::hasCommand(const QString& id) const {
  const QList<CommandGroup*>& groups = d->bag.groups();
  const auto has = [&id](const CommandGroup* group) { return group->hasCommand(id); };
  return d->bag.hasCommand(id) || std::any_of(groups.cbegin(), groups.cend(), has);
}

CommandBase* CommandGroup::getCommand(const QString& id) {
  if (CommandBase* const child = d->bag.getCommand(id))
    return child;
  const QList<CommandGroup*> groups = d->bag.groups();
  for (CommandGroup* const group : groups) {
    if (group->hasCommand(id))
      return group->getCommand(id);
  }
  return nullptr;
}

CommandGroup* CommandGroup::getCommandGroup(const QString& id) {
  if (id == commandId())
    return this;
  if (CommandBase* const child = d->bag.getCommand(id)) {
    auto* const group = dynamic_cast<CommandGroup*>(child);
    return group ? group : this;
  }
  const QList<CommandGroup*> groups = d->bag.groups();
  for (CommandGroup* const group : groups) {
    if (CommandGroup* const holder = group->getCommandGroup(id))
      return holder;
  }
  return nullptr;
}

void CommandGroup::addAttachedCommandGroupName(const QString& name) {
  CommandBase::addAttachedCommandGroupName(name);
  forEachChild(d->bag, [&name](CommandBase& child) { child.addAttachedCommandGroupName(name); });
}

void CommandGroup::removeAttachedCommandGroupName(const QString& name) {
  CommandBase::removeAttachedCommandGroupName(name);
  forEachChild(d->bag, [&name](CommandBase& child) { child.removeAttachedCommandGroupName(name); });
}

void CommandGroup::addObserver(CommandStateProtocol* observer) {
  CommandBase::addObserver(observer);
  if (!observer)
    return;
  d->observers.add(observer);
  forEachChild(d->bag, [this](CommandBase& child) { d->observers.observe(child); });
}

void CommandGroup::addObserver(const std::shared_ptr<CommandStateProtocol>& observer, bool asynchronous) {
  CommandBase::addObserver(observer, asynchronous);
  if (!observer)
    return;
  d->observers.add(observer, asynchronous);
  forEachChild(d->bag, [this](CommandBase& child) { d->observers.observe(child); });
}

void CommandGroup::removeObserver(CommandStateProtocol* observer) {
  CommandBase::removeObserver(observer);
  d->observers.remove(observer);
  forEachChild(d->bag, [&](CommandBase& child) { child.removeObserver(observer); });
  forEachChild(d->bag, [this](CommandBase& child) { leaveToOtherGroups(child); });
}

void CommandGroup::removeObserver(const std::shared_ptr<CommandStateProtocol>& observer) {
  CommandBase::removeObserver(observer);
  d->observers.remove(observer);
  forEachChild(d->bag, [&](CommandBase& child) { child.removeObserver(observer); });
  forEachChild(d->bag, [this](CommandBase& child) { leaveToOtherGroups(child); });
}

void CommandGroup::removeAllObservers() {
  CommandBase::removeAllObservers();
  const GroupObservers observers = std::exchange(d->observers, {});
  forEachChild(d->bag, [&](CommandBase& child) {
    observers.stopObserving(child);
    leaveToOtherGroups(child);
  });
}

const CommandBag& CommandGroup::commandBag() const { return d->bag; }

CommandBag& CommandGroup::commandBag() { return d->bag; }

CommandBase* CommandGroup::addCommand(const std::shared_ptr<CommandBase>& command, int rank) {
  if (!command || refuses(*command))
    return nullptr;
  setCommandRank(command->commandId(), rank);
  d->bag.insertCommand(positionOf(rank), command);
  attachChild(*command);
  d->observers.tellArrived(*command);
  const CommandRef self(*this);
  if (command->isChecked())
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
    if (command->isChecked())
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

// Not what the child says of itself: another one may be on, and one that is not checkable says off.
void CommandGroup::showChildren() {
  bool anyChecked = false;
  forEachChild(d->bag, [&](const CommandBase& child) { anyChecked = anyChecked || child.isChecked(); });
  onChildTriggered(anyChecked);
}

void CommandGroup::showOnButton() {
  if (!d->toolButton)
    return;
  const CommandRef self(*this);
  d->toolButton->setEnabled(isEnabled());
  if (self.get() && d->toolButton && isCheckable())
    d->toolButton->setChecked(isChecked());
}

void CommandGroup::setEnabled(bool enabled) {
  const QPointer<CommandGroup> self(this);
  CommandBase::setEnabled(enabled);
  if (self)
    showOnButton();
}

void CommandGroup::setChecked(bool checked) {
  const QPointer<CommandGroup> self(this);
  CommandBase::setChecked(checked);
  if (!self)
    return;
  if (!isCheckable() && d->toolButton)
    d->toolButton->setChecked(checked);
  else
    showOnButton();
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

bool CommandGroup::isVirtualGroup() const { return d->virtualGroup; }

void CommandGroup::setVirtualGroup(bool isVirtual) { d->virtualGroup = isVirtual; }

CommandContext CommandGroup::commandContext() {
  CommandContext context;
  context.overwrite(commandId(), commandState());
  visitCommands(d->bag, [&context](CommandBase& command) {
    if (const QString id = command.commandId(); !context.contains(id))
      context.overwrite(id, command.commandState());
  });
  return context;
}

CommandGroup* CommandGroup::WrapSingleCmdIntoVirtualCmdGroup(CommandBase* command, int rank,
                                                             const QString& name,
                                                             const QString& baseGroupName) {
  auto* const group = new CommandGroup(QString(), QString(), name);
  group->setBaseGroupName(baseGroupName);
  group->setVirtualGroup(true);
  if (command)
    command->setBaseGroupName(baseGroupName);
  group->addCommand(command, rank);
  return group;
}

bool CommandGroup::listenToTrigger(CommandGroup* other, const char* slot) {
  if (!other || !slot)
    return false;
  return connect(other, SIGNAL(childToBeTriggered(bool)), this, slot, Qt::UniqueConnection);
}

ToolBar* CommandGroup::toolbar() const { return d->toolbar; }

void CommandGroup::setToolbar(ToolBar* toolbar) { d->toolbar = toolbar; }

ToolButton* CommandGroup::toolButton() const { return Upstairs::asToolButton(d->toolButton); }

void CommandGroup::setToolButton(ToolButton* button) {
  d->toolButton = Upstairs::asButton(button);
  showOnButton();
}

QActionGroup* CommandGroup::groupActionGroup() const { return d->actionGroup; }

bool CommandGroup::isGrid() const { return d->grid; }

void CommandGroup::setGrid(bool grid) { d->grid = grid; }

int CommandGroup::gridSize() const { return d->gridSize; }

void CommandGroup::setGridSize(int size) { d->gridSize = size; }

void CommandGroup::uncheckChildren(bool) {
  const CommandRef self(*this);
  const bool before = std::exchange(d->unchecking, true);
  const auto done = qScopeGuard([&] {
    if (self.get())
      d->unchecking = before;
  });
  const CommandBag children = d->bag; // a child that runs may change the group
  for (int i = 0; i < children.count() && self.get(); ++i) {
    CommandBase* const child = children.commandAt(i);
    if (d->bag.contains(child) && child->isCheckable() && child->isChecked())
      child->toggle();
  }
  if (self.get() && isCheckable() && isChecked())
    setChecked(false);
}

void CommandGroup::onChildTriggered(bool checked) {
  if (isCheckable())
    setChecked(checked);
}

void CommandGroup::onChildToBeTriggered(bool checked) {
  if (!d->unchecking)
    Q_EMIT childToBeTriggered(checked);
}

void CommandGroup::onChildChanged() {}

} // namespace Vela::UiBase
