// SPDX-License-Identifier: MIT
#pragma once

#include "busy_cursors.h"
#include "cmds_view_controller.h"
#include "executing_command.h"
#include "run_notices.h"
#include "view_cursors.h"

#include <ui_base/commands/command_group.h>
#include <ui_base/core/lifetime.h>

#include <memory>

namespace Vela::UiBase {

class CmdsViewControllerPrivate {
public:
  explicit CmdsViewControllerPrivate(BaseViewController& controller);

  std::shared_ptr<CommandGroup> actionPanelGroup;
  std::shared_ptr<CommandGroup> toolPanelGroup;
  std::shared_ptr<CommandGroup> dynamicToolPanelGroup;

  ViewCursors cursors;
  MousePress pendingRightPress; // not yet given to a tool
  ExecutingCommand executing;
  BusyCursors busyCursors;
  RunNotices runNotices;
  bool hasCommandsOfLostView = false; // which did not close, and so did not let go of them
  bool dying = false;
  Lifetime lifetime;
};

} // namespace Vela::UiBase
