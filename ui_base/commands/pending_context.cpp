// SPDX-License-Identifier: MIT
#include "pending_context.h"

#include "command_base.h"

namespace Vela::UiBase {

void PendingContext::applyToKept() const {
  for (const auto& [weak, state] : m_kept) {
    if (const auto command = weak.lock())
      command->setCommandState(state);
  }
}

} // namespace Vela::UiBase
