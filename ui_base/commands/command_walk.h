// SPDX-License-Identifier: MIT
#pragma once

#include "command_group.h"

namespace Vela::UiBase {

/// Calls @p visit with every command of a bag, then with those inside its groups, group by group: the order
/// of look-ups.
template <class Visitor>
void visitCommands(const CommandBag& bag, const Visitor& visit) {
  for (int i = 0; i < bag.count(); ++i)
    visit(*bag.commandAt(i));
  for (const CommandGroup* const group : bag.groups())
    visitCommands(group->commandBag(), visit);
}

/// Calls @p visit with a command and, if it is a group, with those inside it.
template <class Visitor>
void visitWithin(CommandBase& command, const Visitor& visit) {
  visit(command);
  if (const auto* const group = dynamic_cast<CommandGroup*>(&command))
    visitCommands(group->commandBag(), visit);
}

} // namespace Vela::UiBase
