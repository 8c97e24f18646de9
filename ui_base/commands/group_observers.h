// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/core/command_state_protocol.h>

#include <QObject>
#include <QPointer>

#include <memory>
#include <vector>

namespace Vela::UiBase {

class CommandBase;

/// The observers of a command group, which hear its children too. A child tells each of them once, however
/// many ways lead from the one to the other.
class GroupObservers {
public:
  void add(CommandStateProtocol* observer);
  void add(const std::shared_ptr<CommandStateProtocol>& observer, bool asynchronous);
  void remove(const CommandStateProtocol* observer);
  void remove(const std::shared_ptr<CommandStateProtocol>& observer);

  void observe(CommandBase& child) const;
  void stopObserving(CommandBase& child) const;
  /// Tells the managers among them of a child that was added.
  void tellArrived(CommandBase& child) const;

private:
  struct Weak {
    std::weak_ptr<CommandStateProtocol> observer;
    bool asynchronous;
  };
  struct Guarded {
    QPointer<QObject> object;
    CommandStateProtocol* observer; // the object's other face, valid while the object is
  };

  std::vector<Weak> m_weak;
  std::vector<Guarded> m_guarded;
};

} // namespace Vela::UiBase
