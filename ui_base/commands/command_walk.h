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

} // namespace Vela::UiBase
