// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QString>

namespace Vela::UiBase {

class CmdMgr;
class CommandBase;

/// What a user can do about a command that cannot be used just now.
struct WayOut {
  enum EKind : int {
    ShowPanel,   ///< Go to the open panel that holds it up.
    CancelRun,   ///< Ask the run that holds it up to end early.
    RunWhenFree, ///< Run it as soon as nothing holds it up any more.
    CallOff,     ///< Do not, as was asked before.
  };

  EKind kind = RunWhenFree;
  QString holderId; ///< The command that holds it up; empty where the way leads past none.
  QString text;     ///< For the user.
};

/// The ways out that there are for a command at present; none when it can be used, and where only the
/// application or the user's own doing can help.
QList<WayOut> waysOut(const CmdMgr& manager, CommandBase& command);

/// Goes to the panel of a holder, or asks its runs to end. Nothing for other ways, and where the holder
/// is gone meanwhile.
void takeWayOut(const WayOut& way, const CmdMgr& manager);

} // namespace Vela::UiBase
