// SPDX-License-Identifier: MIT
#include "command_group_p.h"
#include "command_walk.h"
#include "upstairs.h"

#include <QActionGroup>

#include <algorithm>

namespace Vela::UiBase {

CommandGroup::CommandGroup(const QString& iconName, const QString& toolTip, const QString& name)
    : CommandGroup(iconName, Text(toolTip), name) {}

CommandGroup::CommandGroup(const QString& iconName, const Text& toolTip, const QString& name)
    : CommandBase(nullptr), d(std::make_unique<CommandGroupPrivate>()) {
  if (!iconName.isEmpty())
    setIcon(Upstairs::icon(iconName));
  setToolTip(toolTip);
  setObjectName(name);
  setExecutionQoS(Taren::Core::MainThreadQoS);
  setCheckable(true);
  d->actionGroup = new QActionGroup(this);
  // Also when who sets the state takes the group for a plain action.
  connect(this, &QAction::toggled, this, [this](bool checked) {
    if (d->toolButton)
      d->toolButton->setChecked(checked);
  });
  connect(this, &QAction::enabledChanged, this, &CommandGroup::showOnButton);
}

CommandGroup::~CommandGroup() {
  beginDestruction();
  d->forEachChild([this](CommandBase& child) { detachChild(child); });
}

QString CommandGroup::className() {
  static const QString name = QString::fromLatin1(staticMetaObject.className());
  return name;
}

QString CommandGroup::commandId() const { return className() + objectName(); }

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
  d->forEachChild([&name](CommandBase& child) { child.addAttachedCommandGroupName(name); });
}

void CommandGroup::removeAttachedCommandGroupName(const QString& name) {
  CommandBase::removeAttachedCommandGroupName(name);
  d->forEachChild([&name](CommandBase& child) { child.removeAttachedCommandGroupName(name); });
}

const CommandBag& CommandGroup::commandBag() const { return d->bag; }

CommandBag& CommandGroup::commandBag() { return d->bag; }

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

QActionGroup* CommandGroup::groupActionGroup() const { return d->actionGroup; }

bool CommandGroup::isGrid() const { return d->grid; }

void CommandGroup::setGrid(bool grid) { d->grid = grid; }

int CommandGroup::gridSize() const { return d->gridSize; }

void CommandGroup::setGridSize(int size) { d->gridSize = size; }

} // namespace Vela::UiBase
