// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/commands/context_hold.h>

#include <QString>

namespace Vela::UiBase {

/// One of the causes for which a command cannot be used; see CmdMgr::explain().
struct CommandCause {
  enum EKind : int {
    Layer,       ///< A context that somebody holds.
    OwnState,    ///< The command is disabled by itself.
    Group,       ///< A group that holds it is disabled.
    Licence,     ///< It is a paid feature, and there is no licence.
    Application, ///< The application disabled it, and said why.
  };

  EKind kind = OwnState;
  /// Who holds the layer, for a Layer.
  ContextHolder holder;
  /// A sentence for the user.
  QString text;
};

} // namespace Vela::UiBase
