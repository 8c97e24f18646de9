// SPDX-License-Identifier: MIT
#include "operation_log.h"

#include <QMetaMethod>

namespace Vela::UiBase {

OperationLog::OperationLog() = default;
OperationLog::~OperationLog() = default;

OperationLog& OperationLog::Instance() {
  static OperationLog log;
  return log;
}

bool OperationLog::isHeard() const { return isSignalConnected(QMetaMethod::fromSignal(&OperationLog::told)); }

} // namespace Vela::UiBase
