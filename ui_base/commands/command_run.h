// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/commands/run_progress.h>
#include <ui_base/commands/run_record.h>
#include <ui_base/ui_base_export.h>

#include <memory>
#include <stop_token>

namespace Vela::UiBase {

/// One run of a command, from trigger to closing steps: how far it is, and a way to end it early. A handle:
/// copies are the same run, and keep nothing of the command alive. All operations may be called from any
/// thread; on a handle without a run they do nothing.
///
/// The work finds its own run with current(). From the moment on that it took the stop token, the user is
/// offered to cancel it; from the first progress on there is a progress bar. The controller shows both for
/// commands whose execution notification is enabled.
///
/// @code
/// bool onExecuteAsync(bool) override {                  // on a worker
///   const CommandRun run = CommandRun::current();
///   const std::stop_token stop = run.stopToken();
///   for (int i = 0; i < count && !stop.stop_requested(); ++i) {
///     work(i);
///     run.setProgress(double(i) / count);
///   }
///   return !stop.stop_requested();                      // false: the run counts as cancelled
/// }
/// @endcode
class UI_BASE_EXPORT CommandRun {
public:
  /// No run.
  CommandRun() = default;
  /// The run whose work the calling thread does, or whose begin or end it announces to observers; else none.
  static CommandRun current();

  /// Whether it stands for no run at all.
  bool isNull() const noexcept { return !m_state; }
  /// As in RunRecord::id; 0 for none.
  quint64 id() const noexcept;
  /// Identifier of the command, also after its death; empty for none.
  QString commandId() const;
  /// The name of the command, as it was at the beginning.
  QString text() const;
  /// RunUnderway until the closing steps.
  ERunOutcome outcome() const noexcept;
  /// Whether it has neither ended nor been refused.
  bool isUnderway() const noexcept { return m_state && outcome() == RunUnderway; }

  /// For the work: what tells it to end early.
  std::stop_token stopToken() const;
  /// For the work: the same together with the progress, for algorithms that know of no run.
  RunProgress reporter() const;
  /// Whether the work took its stop token, and so listens.
  bool canBeStopped() const noexcept;
  /// Asks the work to end early. @return false when it was asked before, or there is no run.
  bool requestStop() const noexcept;
  /// Whether a stop was asked for; work looks now and then and returns early.
  bool isStopRequested() const noexcept;

  /// From 0 to 1; negative as long as the work has told none.
  double progress() const noexcept;
  /// See progress().
  void setProgress(double fraction) const noexcept;

  friend bool operator==(const CommandRun&, const CommandRun&) = default;

private:
  friend class CommandExecution;
  struct State;

  CommandRun(const RunRecord& record, const QString& text);
  void end(ERunOutcome outcome) const noexcept;

  std::shared_ptr<State> m_state;
};

} // namespace Vela::UiBase
