// SPDX-License-Identifier: MIT
#pragma once

#include "busy_cursors.h"
#include "cmds_view_controller.h"
#include "executing_command.h"
#include "mouse_loss_watch.h"
#include "run_notices.h"
#include "view_cursors.h"

#include <ui_base/commands/command_group.h>

#include <functional>

namespace Vela::UiBase {

class CmdsViewControllerPrivate {
public:
  CmdsViewControllerPrivate(BaseViewController& controller, std::function<void()> mouseLost);

  std::shared_ptr<CommandGroup> actionPanelGroup;
  std::shared_ptr<CommandGroup> toolPanelGroup;
  std::shared_ptr<CommandGroup> dynamicToolPanelGroup;

  ViewCursors cursors;
  MousePress pendingRightPress; // not yet given to a tool
  ExecutingCommand executing;
  MouseLossWatch watch; // on while there is an operation or a pending press
  BusyCursors busyCursors;
  RunNotices runNotices;
  bool hasCommandsOfLostView = false; // which did not close, and so did not let go of them
  bool dying = false;
};

} // namespace Vela::UiBase
