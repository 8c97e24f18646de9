// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/commands/command_run.h>
#include <ui_base/ui_base_export.h>

#include <QList>
#include <QObject>

#include <chrono>
#include <memory>

namespace Vela::UiBase {

class CommandBase;
class RunLogPrivate;

/// Keeps a record of each run of each command of the program, the newest ones up to a fixed number, and knows
/// the runs that are under way. The records also stand in the traces that the kernel of the application
/// service writes. All operations may be called from any thread; RunModel shows the records in a view.
///
/// @code
/// const auto records = RunLog::Instance().records();
/// for (const RunRecord& record : records) {
///   if (record.blockedMainThread)
///     qInfo() << record.commandId << "kept the user waiting";
/// }
/// @endcode
class UI_BASE_EXPORT RunLog : public QObject {
  Q_OBJECT

public:
  static constexpr qsizetype defaultCapacity = 1000;
  static constexpr std::chrono::milliseconds defaultMainThreadLimit{50};

  /// The log of the process.
  static RunLog& Instance();

  /// A copy of what is kept, oldest first; those under way stand among them.
  QList<RunRecord> records() const;
  /// The runs under way, oldest first.
  QList<CommandRun> runsUnderway() const;
  /// Those of one command.
  QList<CommandRun> runsUnderway(const CommandBase& command) const;

  /// How many runs are kept.
  qsizetype capacity() const;
  /// At least 1. What is too much is dropped, oldest first.
  void setCapacity(qsizetype capacity);
  /// Forgets what is kept.
  void clear();

  /// How long work on the main thread may take before its record says that it blocked it.
  std::chrono::nanoseconds mainThreadLimit() const;
  /// See mainThreadLimit().
  void setMainThreadLimit(std::chrono::nanoseconds limit);

Q_SIGNALS:
  /// On the thread that runs or ends, which is the main thread but for commands triggered elsewhere.
  void runBegan(const Vela::UiBase::RunRecord& record);
  /// A run has ended and is in the log.
  void runEnded(const Vela::UiBase::RunRecord& record);
  /// The log was emptied.
  void cleared();

private:
  friend class CommandExecution;

  RunLog();
  ~RunLog() override;
  /// The next number of a run.
  static quint64 nextId();
  void begin(const RunRecord& record, const CommandRun& run, const CommandBase& command);
  void end(RunRecord record);

  const std::unique_ptr<RunLogPrivate> d;
};

} // namespace Vela::UiBase
