// SPDX-License-Identifier: MIT
#include "run_progress.h"

#include <algorithm>

namespace Vela::UiBase {

const char* RunCancelled::what() const noexcept { return "The run was cancelled"; }

RunProgress::RunProgress(std::stop_token stop, Callback callback)
    : m_stop(std::move(stop)), m_callback(std::move(callback)) {}

void RunProgress::report(double fraction) const {
  if (isStopRequested())
    throw RunCancelled();
  const int percent = int(std::clamp(fraction, 0.0, 1.0) * 100);
  if (!m_callback || percent <= m_percent)
    return;
  m_percent = percent;
  m_callback(percent / 100.0);
}

} // namespace Vela::UiBase
