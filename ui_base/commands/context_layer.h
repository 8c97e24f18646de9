// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/commands/command_context.h>
#include <ui_base/commands/context_hold.h>

namespace Vela::UiBase {

/// A layer of contexts as it stood when CmdMgr::layers() was asked. A plain value.
struct ContextLayer {
  ContextHolder holder; ///< Who it is for; nobody, where that was not said.
  bool isHeld = false;  ///< Whether a ContextHold ends it; else popContext().
  CommandContext asked; ///< What was pushed.
};

} // namespace Vela::UiBase
