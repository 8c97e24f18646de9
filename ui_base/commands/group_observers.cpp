// SPDX-License-Identifier: MIT
#include "group_observers.h"

#include "cmd_mgr.h"
#include "command_base.h"

namespace Vela::UiBase {

void GroupObservers::add(CommandStateProtocol* observer) {
  m_guarded.push_back({dynamic_cast<QObject*>(observer), observer});
}

void GroupObservers::add(const std::shared_ptr<CommandStateProtocol>& observer, bool asynchronous) {
  std::erase_if(m_weak, [](const Weak& entry) { return entry.observer.expired(); });
  m_weak.push_back({observer, asynchronous});
}

void GroupObservers::remove(const CommandStateProtocol* observer) {
  std::erase_if(m_guarded,
                [observer](const Guarded& entry) { return !entry.object || entry.observer == observer; });
}

void GroupObservers::remove(const std::shared_ptr<CommandStateProtocol>& observer) {
  std::erase_if(m_weak, [&observer](const Weak& entry) { return entry.observer.lock() == observer; });
}

// An observer that hears the child already, by another group or by itself, shall not hear it twice.
void GroupObservers::observe(CommandBase& child) const {
  for (const Weak& entry : m_weak) {
    if (const auto observer = entry.observer.lock()) {
      child.removeObserver(observer);
      child.addObserver(observer, entry.asynchronous);
    }
  }
  for (const Guarded& entry : m_guarded) {
    if (!entry.object)
      continue;
    if (entry.object->parent())
      child.removeObserver(entry.observer);
    child.addObserver(entry.observer);
  }
}

// A guarded observer without a parent cannot be removed; it is dropped when it dies.
void GroupObservers::stopObserving(CommandBase& child) const {
  for (const Weak& entry : m_weak) {
    if (const auto observer = entry.observer.lock())
      child.removeObserver(observer);
  }
  for (const Guarded& entry : m_guarded) {
    if (entry.object && entry.object->parent())
      child.removeObserver(entry.observer);
  }
}

void GroupObservers::tellArrived(CommandBase& child) const {
  for (const Weak& entry : m_weak) {
    if (const auto manager = std::dynamic_pointer_cast<CmdMgr>(entry.observer.lock()))
      manager->childArrived(child);
  }
}

} // namespace Vela::UiBase
