// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/commands/command_run.h>

namespace Vela::UiBase {

/// Makes a run the current one of its thread for the length of a scope.
class CurrentRun {
public:
  explicit CurrentRun(CommandRun run);
  ~CurrentRun();
  CurrentRun(const CurrentRun&) = delete;
  CurrentRun& operator=(const CurrentRun&) = delete;

private:
  CommandRun m_previous;
};

} // namespace Vela::UiBase
