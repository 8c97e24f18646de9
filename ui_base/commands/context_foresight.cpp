// SPDX-License-Identifier: MIT
#include "context_foresight.h"

#include "command_group.h"

#include <QActionGroup>

namespace Vela::UiBase {

namespace {

template <class Visitor>
void forEachRival(const CommandBase& command, const Visitor& visit) {
  const QActionGroup* const group = command.actionGroup();
  if (!group || !group->isExclusive())
    return;
  const QList<QAction*> actions = group->actions();
  for (QAction* const action : actions) {
    if (const auto* const rival = dynamic_cast<CommandBase*>(action); rival && rival != &command)
      visit(*rival);
  }
}

template <class IsOn>
bool isAnyOn(const CommandBag& children, const IsOn& isOn) {
  for (int i = 0; i < children.count(); ++i) {
    if (isOn(*children.commandAt(i)))
      return true;
  }
  return false;
}

auto isOnIn(const CommandContext& states) {
  return [&states](const CommandBase& command) {
    const auto found = states.get().constFind(command.commandId());
    return found != states.get().cend() && found->checked == State::On;
  };
}

template <class IsOn>
bool contradictsChildren(const CommandBase& command, const State& checked, const IsOn& isOn) {
  const auto* const group = dynamic_cast<const CommandGroup*>(&command);
  if (!group)
    return false;
  const CommandBag& children = group->commandBag();
  return isAnyOn(children, [](const CommandBase& child) { return child.isCheckable(); }) &&
         isAnyOn(children, isOn) != bool(checked);
}

void foreseeChecked(CommandContext& states, const CommandBase& command, bool checked) {
  const QString id = command.commandId();
  if (!states.contains(id))
    return;
  CommandState& entry = states[id];
  if (entry.checked == checked)
    return;
  entry.checked = checked;
  if (checked)
    forEachRival(command, [&](const CommandBase& rival) { foreseeChecked(states, rival, false); });
  const QList<CommandGroup*> groups = command.holdingGroups();
  for (CommandGroup* const group : groups) {
    if (group->isCheckable())
      foreseeChecked(states, *group, isAnyOn(group->commandBag(), isOnIn(states)));
  }
}

} // namespace

void foresee(CommandContext& states, const CommandBase& command, const CommandState& state) {
  const QString id = command.commandId();
  if (!states.contains(id))
    return;
  CommandState& entry = states[id];
  entry.enabled = state.enabled;
  if (state.checked != State::Keep && !(entry.checked == state.checked) && command.isCheckable() &&
      !contradictsChildren(command, state.checked, isOnIn(states)))
    foreseeChecked(states, command, state.checked);
}

void addFollowing(QSet<QString>& following, const CommandBase& command) {
  const auto add = [&](const CommandBase& follower) {
    const QString id = follower.commandId();
    if (following.contains(id))
      return;
    following.insert(id);
    addFollowing(following, follower);
  };
  forEachRival(command, add);
  const QList<CommandGroup*> groups = command.holdingGroups();
  for (const CommandGroup* const group : groups) {
    if (group->isCheckable())
      add(*group);
  }
}

CommandState attainable(const CommandBase& command, const CommandState& state) {
  const auto isOn = [](const CommandBase& child) { return child.isChecked(); };
  const bool changes = state.checked != State::Keep && state.checked != command.isChecked();
  if (changes && contradictsChildren(command, state.checked, isOn))
    return {state.enabled, State::Keep};
  return state;
}

} // namespace Vela::UiBase
