// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/core/cmd_mgr_protocol.h>

#include <memory>
#include <vector>

namespace Workbench {

/// Hands on what a command manager tells its one delegate to several.
class CommandListeners : public Vela::UiBase::CmdMgrProtocol {
public:
  explicit CommandListeners(std::vector<std::shared_ptr<Vela::UiBase::CmdMgrProtocol>> listeners)
      : m_listeners(std::move(listeners)) {}

  void commandAdded(Vela::UiBase::CmdMgr* manager, Vela::UiBase::CommandBase* command) override {
    for (const auto& listener : m_listeners)
      listener->commandAdded(manager, command);
  }
  void commandRemoved(Vela::UiBase::CmdMgr* manager, QString id) override {
    for (const auto& listener : m_listeners)
      listener->commandRemoved(manager, id);
  }

private:
  const std::vector<std::shared_ptr<Vela::UiBase::CmdMgrProtocol>> m_listeners;
};

} // namespace Workbench
