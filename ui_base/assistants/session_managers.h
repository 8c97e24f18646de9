// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/commands/cmd_mgr.h>

#include <memory>
#include <utility>

namespace Vela::UiBase {

/// The command managers of a session, held weakly.
class SessionManagers {
public:
  /// Null is ignored.
  void add(CmdMgr* manager) {
    if (manager)
      m_managers.append(manager->shared_from_this());
  }

  /// The first command of that identifier, and its manager; nulls when there is none.
  std::pair<std::shared_ptr<CmdMgr>, CommandBase*> find(const QString& id) const {
    for (const auto& known : m_managers) {
      auto manager = known.lock();
      if (CommandBase* const command = manager ? manager->findCommand(id) : nullptr)
        return {std::move(manager), command};
    }
    return {};
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
  QList<std::weak_ptr<CmdMgr>> m_managers;
};

} // namespace Vela::UiBase
