// SPDX-License-Identifier: MIT
#include "audit_p.h"
#include "shortcut_use.h"

#include <ui_base/commands/cmd_mgr.h>
#include <ui_base/commands/command_name.h>
#include <ui_base/commands/command_walk.h>
#include <ui_base/commands/run_log.h>

#include <QHash>
#include <QSet>

namespace Vela::UiBase {

namespace {

QList<CommandBase*> commandsOf(const CmdMgr& manager) {
  QList<CommandBase*> commands;
  QSet<const CommandBase*> seen; // some stand in several groups
  visitCommands(manager.commandBag(), [&](CommandBase& command) {
    if (seen.contains(&command))
      return;
    seen.insert(&command);
    commands.append(&command);
  });
  return commands;
}

QString placeOf(const ShortcutUse& use) { return use.commandId.isEmpty() ? use.name : use.commandId; }

} // namespace

void Audit::lookAtCommands() {
  const QList<CommandBase*> commands = commandsOf(m_manager);
  for (const CommandBase* const each : commands) {
    const CommandBase& command = *each;
    if (qobject_cast<const CommandGroup*>(&command) || !command.isVisible())
      continue;
    if (nameInSentence(command).isEmpty())
      add(AuditFinding::NoText, command.commandId());
    if (command.associatedObjects().isEmpty())
      add(AuditFinding::NoKeyboard, command.commandId());
  }
  lookAtIdentifiers(commands);
  lookAtShortcuts(commands);
  lookAtRuns(commands);
}

void Audit::lookAtIdentifiers(const QList<CommandBase*>& commands) {
  QHash<QString, int> counts;
  for (const CommandBase* const command : commands) {
    if (++counts[command->commandId()] == 2)
      add(AuditFinding::SameIdentifier, command->commandId());
  }
}

void Audit::lookAtShortcuts(const QList<CommandBase*>& commands) {
  QList<ShortcutUse> uses = usesBesideCommands(m_window) + libraryKeys();
  for (const CommandBase* const command : commands) {
    const auto own = usesOf(*command);
    for (const ShortcutUse& use : own) {
      const auto met = m_options.shortcuts.metBy(use, uses);
      for (const ShortcutUse& other : met)
        add(AuditFinding::ShortcutsMeet,
            QStringLiteral("%1: %2, %3").arg(use.keys.toString(), placeOf(other), placeOf(use)));
    }
    uses += own;
  }
}

void Audit::lookAtRuns(const QList<CommandBase*>& commands) {
  using std::chrono::milliseconds;
  QSet<QString> ids;
  for (const CommandBase* const command : commands)
    ids.insert(command->commandId());
  const auto records = RunLog::Instance().records();
  for (const RunRecord& record : records) {
    if (record.blockedMainThread && ids.remove(record.commandId))
      add(AuditFinding::SlowCommand,
          QStringLiteral("%1: %2 ms")
              .arg(record.commandId, QString::number(duration_cast<milliseconds>(record.duration).count())));
  }
}

} // namespace Vela::UiBase
