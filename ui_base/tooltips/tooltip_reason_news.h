// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

namespace Vela::UiBase {

/// Brings the tooltips word of TooltipReason::refresh(), once in a turn of the event loop.
class TooltipReasonNews : public QObject {
  Q_OBJECT

public:
  static TooltipReasonNews& Instance();

  void post();

Q_SIGNALS:
  void changed();

private:
  bool m_posted = false;
};

} // namespace Vela::UiBase
