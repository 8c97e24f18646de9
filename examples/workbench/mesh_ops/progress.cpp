// SPDX-License-Identifier: MIT
#include "progress.h"

#include <algorithm>

namespace Workbench {

Progress::Progress(std::stop_token stop, Callback callback)
    : m_stop(std::move(stop)), m_callback(std::move(callback)) {}

void Progress::report(double fraction) const {
  if (isStopRequested())
    throw OperationCancelled();
  const int percent = int(std::clamp(fraction, 0.0, 1.0) * 100);
  if (!m_callback || percent <= m_percent)
    return;
  m_percent = percent;
  m_callback(percent / 100.0);
}

} // namespace Workbench
