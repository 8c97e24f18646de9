// SPDX-License-Identifier: MIT
#include "command_usage.h"

#include <ui_base/commands/run_log.h>

#include <algorithm>

namespace Vela::UiBase {

namespace {
constexpr int mostCounted = 1000;
} // namespace

CommandUsage::CommandUsage(QObject* parent) : QObject(parent) {
  connect(&RunLog::Instance(), &RunLog::runBegan, this, &CommandUsage::noteRun);
}

void CommandUsage::noteRun(const RunRecord& record) {
  if (record.source != RunByProgram)
    note(record.commandId);
}

void CommandUsage::note(const QString& commandId) {
  if (++m_counts[commandId] < mostCounted)
    return;
  m_counts.removeIf([](auto entry) { return (entry.value() /= 2) == 0; });
}

QVariantMap CommandUsage::values() const {
  QVariantMap values;
  for (auto it = m_counts.cbegin(); it != m_counts.cend(); ++it)
    values.insert(it.key(), it.value());
  return values;
}

void CommandUsage::restore(const QVariantMap& values) {
  m_counts.clear();
  for (auto it = values.cbegin(); it != values.cend(); ++it) {
    if (const int count = it.value().toInt(); count > 0)
      m_counts.insert(it.key(), std::min(count, mostCounted - 1));
  }
}

} // namespace Vela::UiBase
