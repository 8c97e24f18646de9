// SPDX-License-Identifier: MIT
#include "pending_context.h"

#include "call_failure.h"
#include "command_base.h"

namespace Vela::UiBase {

void PendingContext::applyToKept() const {
  FirstFailure failure;
  for (const auto& [weak, state] : m_kept) {
    if (const auto command = weak.lock())
      failure.guard([&command = *command, &state = state] { command.setCommandState(state); });
  }
  failure.rethrow();
}

} // namespace Vela::UiBase
