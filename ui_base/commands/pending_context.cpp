// SPDX-License-Identifier: MIT
#include "pending_context.h"

#include "command_group.h"

#include <QActionGroup>

namespace Vela::UiBase {

namespace {

void foreseeChecked(CommandContext& states, const CommandBase& command, bool checked);

void uncheckRivals(CommandContext& states, const CommandBase& command) {
  const QActionGroup* const group = command.actionGroup();
  if (!group || !group->isExclusive())
    return;
  const QList<QAction*> actions = group->actions();
  for (QAction* const action : actions) {
    if (const auto* const rival = dynamic_cast<CommandBase*>(action); rival && rival != &command)
      foreseeChecked(states, *rival, false);
  }
}

bool isAnyChecked(const CommandContext& states, const CommandBag& children) {
  for (int i = 0; i < children.count(); ++i) {
    const auto found = states.get().constFind(children.commandAt(i)->commandId());
    if (found != states.get().cend() && found->checked == State::On)
      return true;
  }
  return false;
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
    uncheckRivals(states, command);
  const QList<CommandGroup*> groups = command.holdingGroups();
  for (CommandGroup* const group : groups) {
    if (group->isCheckable())
      foreseeChecked(states, *group, isAnyChecked(states, group->commandBag()));
  }
}

} // namespace

void PendingContext::applyToKept() const {
  for (const auto& [weak, state] : m_kept) {
    if (const auto command = weak.lock())
      command->setCommandState(state);
  }
}

void foresee(CommandContext& states, const CommandBase& command, const CommandState& state) {
  states[command.commandId()].enabled = state.enabled;
  if (command.isCheckable() && !(state.checked == State::Keep))
    foreseeChecked(states, command, state.checked);
}

} // namespace Vela::UiBase
