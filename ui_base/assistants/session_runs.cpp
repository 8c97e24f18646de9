// SPDX-License-Identifier: MIT
#include "session_runs.h"

#include <ui_base/commands/command_base.h>

#include <QActionGroup>

namespace Vela::UiBase {

SessionManagers::Found SessionRuns::began(const RunRecord& record) {
  const SessionManagers::Found found = m_managers.findRun(record);
  if (!found.command || !m_subject.isRecorded(*found.command))
    return {};
  const bool isStep = !isPart(record, *found.manager, *found.command);
  m_underway.insert(record.id);
  return isStep ? found : SessionManagers::Found();
}

// Contexts check and uncheck commands; whoever handed them over is the step. One of an exclusive group is
// unchecked by another one that is checked, which is told afterwards. What the program does while a step is
// underway follows from it, also by way of an event.
bool SessionRuns::isPart(const RunRecord& record, const CmdMgr& manager, const CommandBase& command) const {
  const QActionGroup* const group = command.actionGroup();
  const bool isExclusive = group && group->exclusionPolicy() == QActionGroup::ExclusionPolicy::Exclusive;
  const bool givesWay = isExclusive && command.isCheckable() && !record.checked;
  const bool follows = record.source == RunByProgram && isAnyUnderway();
  return givesWay || follows || m_underway.contains(record.parent) || manager.isApplyingContext();
}

} // namespace Vela::UiBase
