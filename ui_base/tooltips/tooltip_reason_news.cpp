// SPDX-License-Identifier: MIT
#include "tooltip_reason_news.h"

#include <utility>

namespace Vela::UiBase {

TooltipReasonNews& TooltipReasonNews::Instance() {
  static TooltipReasonNews news;
  return news;
}

void TooltipReasonNews::post() {
  if (std::exchange(m_posted, true))
    return;
  const auto tell = [this] {
    m_posted = false;
    Q_EMIT changed();
  };
  QMetaObject::invokeMethod(this, tell, Qt::QueuedConnection);
}

} // namespace Vela::UiBase
