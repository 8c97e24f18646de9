// SPDX-License-Identifier: MIT
#include "session_subject.h"

#include <ui_base/commands/cmd_mgr.h>
#include <ui_base/commands/command_base.h>
#include <ui_base/commands/command_walk.h>

namespace Vela::UiBase {

SessionSubject::~SessionSubject() = default;

bool SessionSubject::isRecorded(const CommandBase&) const { return true; }

bool SessionSubject::perform(const ToolOperation&) { return false; }

bool SessionSubject::isBusy() const { return false; }

QVariantMap SessionSubject::commandStates(const CmdMgr& manager) const {
  QVariantMap states;
  visitCommands(manager.commandBag(), [this, &states](const CommandBase& command) {
    if (!isRecorded(command))
      return;
    QString state = command.isEnabled() ? QStringLiteral("on") : QStringLiteral("off");
    if (command.isCheckable() && command.isChecked())
      state += QLatin1String(" checked");
    states.insert(command.commandId(), state);
  });
  return states;
}

} // namespace Vela::UiBase
