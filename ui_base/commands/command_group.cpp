// SPDX-License-Identifier: MIT
#include "command_group.h"

#include <ui_base/views/qt_ui_toolkit.h>

#include <QActionGroup>
#include <QHash>

#include <vector>

namespace Vela::UiBase {

class CommandGroupPrivate {
public:
  struct WeakObserver {
    std::weak_ptr<CommandStateProtocol> observer;
    bool asynchronous;
  };
  struct GuardedObserver {
    QPointer<QObject> object;
    CommandStateProtocol* observer;
  };

  CommandBag bag;
  QHash<QString, int> ranks;
  QActionGroup* actionGroup = nullptr; // a child of the group
  bool grid = false;
  int gridSize = 0;
  bool virtualGroup = false;
  // Children that come later are given them too.
  std::vector<WeakObserver> weakObservers;
  std::vector<GuardedObserver> guardedObservers;
};

CommandGroup::CommandGroup(const QString& iconName, const QString& toolTip, const QString& name)
    : CommandBase(nullptr), d(std::make_unique<CommandGroupPrivate>()) {
  if (!iconName.isEmpty())
    setIcon(QtUiToolkit::Instance().CreateIcon(iconName));
  setToolTip(toolTip);
  setObjectName(name);
  setExecutionQoS(Taren::Core::MainThreadQoS);
  setCheckable(true);
  d->actionGroup = new QActionGroup(this);
}

CommandGroup::~CommandGroup() {
  beginDestruction();
  for (int i = 0; i < d->bag.count(); ++i)
    detachChild(*d->bag.commandAt(i));
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
  return d->bag.hasCommand(id) ||
         std::any_of(groups.cbegin(), groups.cend(),
                     [&id](const CommandGroup* group) { return group->hasCommand(id); });
}

CommandBase* CommandGroup::getCommand(const QString& id) {
  CommandGroup* const holder = getCommandGroup(id);
  return holder ? holder->d->bag.getCommand(id) : nullptr;
}

CommandGroup* CommandGroup::getCommandGroup(const QString& id) {
  if (d->bag.hasCommand(id))
    return this;
  for (CommandGroup* const group : d->bag.groups()) {
    if (CommandGroup* const holder = group->getCommandGroup(id))
      return holder;
  }
  return nullptr;
}

void CommandGroup::addAttachedCommandGroupName(const QString& name) {
  CommandBase::addAttachedCommandGroupName(name);
  for (int i = 0; i < d->bag.count(); ++i)
    d->bag.commandAt(i)->addAttachedCommandGroupName(name);
}

void CommandGroup::removeAttachedCommandGroupName(const QString& name) {
  CommandBase::removeAttachedCommandGroupName(name);
  for (int i = 0; i < d->bag.count(); ++i)
    d->bag.commandAt(i)->removeAttachedCommandGroupName(name);
}

void CommandGroup::addObserver(CommandStateProtocol* observer) {
  CommandBase::addObserver(observer);
  if (!observer)
    return;
  d->guardedObservers.push_back({dynamic_cast<QObject*>(observer), observer});
  for (int i = 0; i < d->bag.count(); ++i)
    d->bag.commandAt(i)->addObserver(observer);
}

void CommandGroup::addObserver(const std::shared_ptr<CommandStateProtocol>& observer, bool asynchronous) {
  CommandBase::addObserver(observer, asynchronous);
  if (!observer)
    return;
  std::erase_if(d->weakObservers, [](const auto& entry) { return entry.observer.expired(); });
  d->weakObservers.push_back({observer, asynchronous});
  for (int i = 0; i < d->bag.count(); ++i)
    d->bag.commandAt(i)->addObserver(observer, asynchronous);
}

void CommandGroup::removeObserver(CommandStateProtocol* observer) {
  CommandBase::removeObserver(observer);
  std::erase_if(d->guardedObservers,
                [observer](const auto& entry) { return !entry.object || entry.observer == observer; });
  for (int i = 0; i < d->bag.count(); ++i)
    d->bag.commandAt(i)->removeObserver(observer);
}

void CommandGroup::removeObserver(const std::shared_ptr<CommandStateProtocol>& observer) {
  CommandBase::removeObserver(observer);
  std::erase_if(d->weakObservers, [&observer](const auto& entry) {
    return entry.observer.expired() || entry.observer.lock() == observer;
  });
  for (int i = 0; i < d->bag.count(); ++i)
    d->bag.commandAt(i)->removeObserver(observer);
}

void CommandGroup::removeAllObservers() {
  CommandBase::removeAllObservers();
  for (int i = 0; i < d->bag.count(); ++i)
    stopObserving(*d->bag.commandAt(i));
  d->guardedObservers.clear();
  d->weakObservers.clear();
}

const CommandBag& CommandGroup::commandBag() const { return d->bag; }

CommandBag& CommandGroup::commandBag() { return d->bag; }

CommandBase* CommandGroup::addCommand(const std::shared_ptr<CommandBase>& command, int rank) {
  if (!command || command.get() == this)
    return nullptr;
  const QString id = command->commandId();
  int position = d->bag.count();
  while (position > 0 && getCommandRank(d->bag.commandAt(position - 1)->commandId()) > rank)
    --position;
  if (!d->bag.insertCommand(position, command))
    return nullptr;
  setCommandRank(id, rank);
  attachChild(*command);
  return command.get();
}

CommandBase* CommandGroup::addCommand(CommandBase* command, int rank) {
  return addCommand(Taren::Objects::adoptShared(command), rank);
}

bool CommandGroup::removeCommand(const QString& id) {
  int position = 0;
  if (!d->bag.hasCommand(id, position))
    return false;
  takeCommand(position);
  if (!d->bag.hasCommand(id))
    d->ranks.remove(id);
  return true;
}

bool CommandGroup::removeCommand(const CommandBase* child) {
  for (int i = 0; i < d->bag.count(); ++i) {
    if (d->bag.commandAt(i) != child)
      continue;
    const QString id = child->commandId();
    if (d->bag.getCommand(id) == child)
      return removeCommand(id);
    takeCommand(i);
    return true;
  }
  return false;
}

std::shared_ptr<CommandBase> CommandGroup::takeCommand(int position) {
  auto command = d->bag.sharedCommandAt(position);
  detachChild(*command);
  d->bag.removeCommand(command.get());
  return command;
}

void CommandGroup::absorbCommandGroup(CommandGroup* other) {
  if (!other || other == this)
    return;
  for (int position = 0; position < other->d->bag.count();) {
    CommandBase* const child = other->d->bag.commandAt(position);
    const QString id = child->commandId();
    if (!d->bag.hasCommand(id)) {
      addCommand(other->takeCommand(position), other->getCommandRank(id));
      continue;
    }
    auto* const ownGroup = dynamic_cast<CommandGroup*>(d->bag.getCommand(id));
    if (auto* const otherGroup = dynamic_cast<CommandGroup*>(child); ownGroup && otherGroup)
      ownGroup->absorbCommandGroup(otherGroup);
    ++position;
  }
}

void CommandGroup::attachChild(CommandBase& child) {
  child.setCommandGroup(this);
  if (child.isCheckable())
    d->actionGroup->addAction(&child);
  connect(&child, SIGNAL(toBeTriggered(bool)), this, SLOT(onChildToBeTriggered(bool)));
  connect(&child, SIGNAL(toBeToggled(bool)), this, SLOT(onChildToBeTriggered(bool)));
  connect(&child, SIGNAL(triggered(bool)), this, SLOT(onChildTriggered(bool)));
  connect(&child, SIGNAL(changed()), this, SLOT(onChildChanged()));
  for (const auto& entry : d->weakObservers) {
    if (const auto observer = entry.observer.lock())
      child.addObserver(observer, entry.asynchronous);
  }
  for (const auto& entry : d->guardedObservers) {
    if (entry.object)
      child.addObserver(entry.observer);
  }
}

void CommandGroup::detachChild(CommandBase& child) {
  disconnect(&child, nullptr, this, nullptr);
  if (d->actionGroup)
    d->actionGroup->removeAction(&child);
  if (child.commandGroup() == this)
    child.setCommandGroup(nullptr);
  stopObserving(child);
}

// Takes from a child the observers it has through the group.
void CommandGroup::stopObserving(CommandBase& child) {
  for (const auto& entry : d->weakObservers) {
    if (const auto observer = entry.observer.lock())
      child.removeObserver(observer);
  }
  for (const auto& entry : d->guardedObservers) {
    if (entry.object && entry.object->parent())
      child.removeObserver(entry.observer);
  }
}

void CommandGroup::setEnabled(bool enabled) { CommandBase::setEnabled(enabled); }

void CommandGroup::setChecked(bool checked) { CommandBase::setChecked(checked); }

int CommandGroup::getCommandRank(const QString& id) const { return d->ranks.value(id, 0); }

void CommandGroup::setCommandRank(const QString& id, int rank) { d->ranks.insert(id, rank); }

bool CommandGroup::isVirtualGroup() const { return d->virtualGroup; }

void CommandGroup::setVirtualGroup(bool isVirtual) { d->virtualGroup = isVirtual; }

CommandContext CommandGroup::commandContext() {
  CommandContext context;
  context.overwrite(commandId(), commandState());
  for (int i = 0; i < d->bag.count(); ++i) {
    CommandBase& child = *d->bag.commandAt(i);
    context.overwrite(child.commandId(), child.commandState());
    if (auto* const group = dynamic_cast<CommandGroup*>(&child))
      context.overwrite(group->commandContext());
  }
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

QActionGroup* CommandGroup::groupActionGroup() const { return d->actionGroup; }

bool CommandGroup::isGrid() const { return d->grid; }

void CommandGroup::setGrid(bool grid) { d->grid = grid; }

int CommandGroup::gridSize() const { return d->gridSize; }

void CommandGroup::setGridSize(int size) { d->gridSize = size; }

void CommandGroup::uncheckChildren(bool) {
  for (int i = 0; i < d->bag.count(); ++i) {
    CommandBase* const child = d->bag.commandAt(i);
    if (child->isCheckable() && child->isChecked())
      child->toggle();
  }
  if (isCheckable() && isChecked())
    setChecked(false);
}

void CommandGroup::onChildTriggered(bool checked) {
  if (isCheckable())
    setChecked(checked);
}

void CommandGroup::onChildToBeTriggered(bool checked) { Q_EMIT childToBeTriggered(checked); }

void CommandGroup::onChildChanged() {}

} // namespace Vela::UiBase
