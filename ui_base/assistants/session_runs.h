// SPDX-License-Identifier: MIT
#pragma once

#include "session_managers.h"
#include "session_subject.h"

#include <ui_base/commands/run_record.h>

#include <QSet>

namespace Vela::UiBase {

/// Tells runs that are steps of a session from those that another one sets off, or that follow from contexts.
class SessionRuns {
public:
  SessionRuns(const SessionManagers& managers, const SessionSubject& subject)
      : m_managers(managers), m_subject(subject) {}

  /// @return the command of a run that begins, if that is a step; nulls if not.
  SessionManagers::Found began(const RunRecord& record);
  void ended(const RunRecord& record) { m_underway.remove(record.id); }
  bool isAnyUnderway() const { return !m_underway.isEmpty(); }
  void clear() { m_underway.clear(); }

private:
  bool isPart(const RunRecord& record, const CmdMgr& manager, const CommandBase& command) const;

  const SessionManagers& m_managers;
  const SessionSubject& m_subject;
  QSet<quint64> m_underway; // steps, and parts of them
};

} // namespace Vela::UiBase
