// SPDX-License-Identifier: MIT
#pragma once

#include "command_context.h"

#include <QSet>

namespace Vela::UiBase {

class CommandBase;

/// Changes the states of a context to what they will be when @p state has been applied to a command: its
/// rivals in an exclusive group go off, the groups that hold it show whether one of their children is on. A
/// command that the context does not hold changes nothing.
void foresee(CommandContext& states, const CommandBase& command, const CommandState& state);

/// Adds the commands whose checked part follows from that of a command, however it changes: the members of
/// its exclusive group, the groups that hold it, and so on.
void addFollowing(QSet<QString>& following, const CommandBase& command);

/// What a context can bring about: a group with checkable children shows whether one of them is on, so what
/// says otherwise is left out. In the present states; foresee() sees to it by itself.
CommandState attainable(const CommandBase& command, const CommandState& state);

} // namespace Vela::UiBase
