// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/commands/text.h>

#include <QString>

class QAction;

namespace Workbench {

/// What there is to say about a command beyond its text, shortcut and status tip. Kept with the command, so
/// that all its buttons say the same.
struct CommandHelp {
  Vela::UiBase::Text details; ///< A sentence or two; empty when the status tip says it all.
  QString picture;            ///< Name of an icon that is shown large beside them.
};

void setCommandHelp(QAction& command, const CommandHelp& help);
CommandHelp commandHelp(const QAction& command);

} // namespace Workbench
