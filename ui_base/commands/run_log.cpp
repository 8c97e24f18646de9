// SPDX-License-Identifier: MIT
#include "run_log.h"

#include "command_base.h"

#include <vlk_app_service/application_service.h>

#include <QPointer>

#include <algorithm>
#include <atomic>
#include <deque>
#include <mutex>
#include <vector>

namespace Vela::UiBase {

namespace {

Taren::Core::TraceSpan spanOf(const RunRecord& record) {
  Taren::Core::TraceSpan span;
  span.name = record.commandId;
  span.begin = record.begin + record.wait;
  span.duration = record.duration;
  span.thread = record.thread;
  span.details = {
      {QStringLiteral("run"), static_cast<qint64>(record.id)},
      {QStringLiteral("source"), runSourceText(record.source)},
      {QStringLiteral("outcome"), runOutcomeText(record.outcome)},
      {QStringLiteral("wait_us"), static_cast<double>(record.wait.count()) / 1000.0},
      {QStringLiteral("blocked_main_thread"), record.blockedMainThread},
  };
  if (!record.message.isEmpty())
    span.details.insert(QStringLiteral("message"), record.message);
  return span;
}

QList<Taren::Core::TraceSpan> spansOfRuns() {
  QList<Taren::Core::TraceSpan> spans;
  const QList<RunRecord> records = RunLog::Instance().records();
  for (const RunRecord& record : records) {
    if (record.thread != 0)
      spans.append(spanOf(record));
  }
  return spans;
}

} // namespace

class RunLogPrivate {
public:
  struct Underway {
    CommandRun run;
    QPointer<const CommandBase> command; // compared only; another one may come to its address
  };

  void trim() {
    while (static_cast<qsizetype>(records.size()) > capacity)
      records.pop_front();
  }

  std::mutex mutex;
  std::deque<RunRecord> records; // rising identifiers
  std::vector<Underway> underway;
  qsizetype capacity = RunLog::defaultCapacity;
  std::atomic<std::chrono::nanoseconds> mainThreadLimit{RunLog::defaultMainThreadLimit};
};

RunLog& RunLog::Instance() {
  static RunLog log;
  return log;
}

RunLog::RunLog() : d(std::make_unique<RunLogPrivate>()) {
  qRegisterMetaType<RunRecord>();
  Services::ApplicationService::GetInstance().Kernel().addTraceSource(spansOfRuns);
}

RunLog::~RunLog() = default;

quint64 RunLog::nextId() {
  static std::atomic<quint64> last{0};
  return ++last;
}

QList<RunRecord> RunLog::records() const {
  const std::lock_guard lock(d->mutex);
  return {d->records.cbegin(), d->records.cend()};
}

QList<CommandRun> RunLog::runsUnderway() const {
  QList<CommandRun> runs;
  const std::lock_guard lock(d->mutex);
  for (const auto& entry : d->underway)
    runs.append(entry.run);
  return runs;
}

QList<CommandRun> RunLog::runsUnderway(const CommandBase& command) const {
  QList<CommandRun> runs;
  const std::lock_guard lock(d->mutex);
  for (const auto& entry : d->underway) {
    if (entry.command == &command)
      runs.append(entry.run);
  }
  return runs;
}

qsizetype RunLog::capacity() const {
  const std::lock_guard lock(d->mutex);
  return d->capacity;
}

void RunLog::setCapacity(qsizetype capacity) {
  const std::lock_guard lock(d->mutex);
  d->capacity = std::max<qsizetype>(1, capacity);
  d->trim();
}

void RunLog::clear() {
  {
    const std::lock_guard lock(d->mutex);
    d->records.clear();
  }
  Q_EMIT cleared();
}

std::chrono::nanoseconds RunLog::mainThreadLimit() const { return d->mainThreadLimit; }

void RunLog::setMainThreadLimit(std::chrono::nanoseconds limit) { d->mainThreadLimit = limit; }

void RunLog::begin(const RunRecord& record, const CommandRun& run, const CommandBase& command) {
  {
    const std::lock_guard lock(d->mutex);
    // Threads that begin at the same time may come in another order than they took their numbers.
    const auto place = std::ranges::upper_bound(d->records, record.id, {}, &RunRecord::id);
    d->records.insert(place, record);
    d->trim();
    d->underway.push_back({run, &command});
  }
  Q_EMIT runBegan(record);
}

void RunLog::end(RunRecord record) {
  {
    const std::lock_guard lock(d->mutex);
    const auto kept = std::ranges::lower_bound(d->records, record.id, {}, &RunRecord::id);
    if (kept != d->records.end() && kept->id == record.id)
      *kept = record;
    std::erase_if(d->underway, [&record](const auto& entry) { return entry.run.id() == record.id; });
  }
  Q_EMIT runEnded(record);
}

} // namespace Vela::UiBase
