// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/core/delegator.h>

class QString;

namespace Vela::UiBase {

class CmdMgr;
class CommandBase;

/// What a command manager tells its delegate. Every callback does nothing by default.
class UI_BASE_EXPORT CmdMgrProtocol {
public:
  CmdMgrProtocol();
  /// Observers may be copied.
  CmdMgrProtocol(const CmdMgrProtocol&);
  CmdMgrProtocol& operator=(const CmdMgrProtocol&);
  virtual ~CmdMgrProtocol();

  /// A command is in the manager from now on.
  virtual void commandAdded(CmdMgr* manager, CommandBase* command);
  /// @p id is the identifier of the removed command, which may be gone by now.
  virtual void commandRemoved(CmdMgr* manager, QString id);
};

} // namespace Vela::UiBase

extern template class UI_BASE_EXPORT Taren::Core::Broadcaster<Vela::UiBase::CmdMgrProtocol>;
extern template class UI_BASE_EXPORT Taren::Core::Delegator<Vela::UiBase::CmdMgrProtocol>;
