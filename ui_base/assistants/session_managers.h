// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/commands/cmd_mgr.h>
#include <ui_base/commands/run_log.h>

#include <algorithm>
#include <memory>

namespace Vela::UiBase {

/// The command managers of a session, held weakly.
class SessionManagers {
public:
  /// Null is ignored.
  void add(CmdMgr* manager) {
    if (manager)
      m_managers.append(manager->shared_from_this());
  }

  struct Found {
    std::shared_ptr<CmdMgr> manager;
    CommandBase* command = nullptr;
    int number = 0; ///< As SessionStep::manager.
  };

  /// The command of that identifier in a manager, or in the first one that has it; nulls when there is none.
  Found find(const QString& id, int number = 0) const {
    const QList<Found> all = findAll(id);
    const auto found = std::ranges::find(all, number, &Found::number);
    return found == all.end() ? Found() : *found;
  }

  /// The one that runs: two windows have their commands under the same identifiers.
  Found findRun(const RunRecord& record) const {
    const QList<Found> all = findAll(record.commandId);
    const auto runs = [&](const Found& found) {
      const auto underway = RunLog::Instance().runsUnderway(*found.command);
      return std::ranges::find(underway, record.id, &CommandRun::id) != underway.end();
    };
    const auto found = all.size() < 2 ? all.begin() : std::ranges::find_if(all, runs);
    return found == all.end() ? all.value(0) : *found;
  }

  /// Those that live.
  QList<std::shared_ptr<CmdMgr>> living() const {
    QList<std::shared_ptr<CmdMgr>> living;
    for (const auto& known : m_managers) {
      if (auto manager = known.lock())
        living.append(std::move(manager));
    }
    return living;
  }

private:
  QList<Found> findAll(const QString& id) const {
    QList<Found> all;
    for (qsizetype i = 0; i < m_managers.size(); ++i) {
      auto manager = m_managers[i].lock();
      if (CommandBase* const command = manager ? manager->findCommand(id) : nullptr)
        all.append({std::move(manager), command, all.isEmpty() ? 0 : int(i + 1)});
    }
    return all;
  }

  QList<std::weak_ptr<CmdMgr>> m_managers;
};

} // namespace Vela::UiBase
