// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/ui_base_export.h>

#include <exception>
#include <functional>
#include <stop_token>

namespace Vela::UiBase {

/// Thrown by work that was asked to stop; nothing of its result is left. A command lets it pass: the run then
/// counts as cancelled, not as failed.
class UI_BASE_EXPORT RunCancelled : public std::exception {
public:
  const char* what() const noexcept override;
};

/// How far some work is, and whether it shall go on: what an algorithm needs to know of the run it works for.
///
/// The caller makes one and hands it over, CommandRun::reporter() for the run of a command; the algorithm
/// calls report() as it goes. A default constructed object tells nobody and never stops. Each object serves
/// one piece of work, and report() is for the thread that does it; isStopRequested() may be asked by any
/// thread.
///
/// @code
/// bool onExecuteAsync(bool) override {            // on a worker
///   m_result = smoothed(m_mesh, CommandRun::current().reporter());
///   return true;
/// }
/// Mesh smoothed(const Mesh& mesh, const RunProgress& progress) {
///   for (int i = 0; i < rounds; ++i)
///     progress.report(double(i) / rounds);        // throws when the user has cancelled
/// }
/// @endcode
class UI_BASE_EXPORT RunProgress {
public:
  /// Hears fractions from 0 to 1 that never fall, on the thread of the work, a hundred and one times at most.
  using Callback = std::function<void(double fraction)>;

  RunProgress() = default;
  /// @p callback hears of progress on the thread that tells it; it must not throw.
  explicit RunProgress(std::stop_token stop, Callback callback = {});

  /// Whether a stop was asked for.
  bool isStopRequested() const noexcept { return m_stop.stop_requested(); }
  /// For functions of the standard library that take one.
  const std::stop_token& stopToken() const noexcept { return m_stop; }
  /// Tells how much is done when that is a whole percent more than was told last. Cheap enough to be called
  /// every few thousand steps.
  /// @throws RunCancelled when a stop was requested.
  void report(double fraction) const;

private:
  std::stop_token m_stop;
  Callback m_callback;
  mutable int m_percent = -1; // told last
};

} // namespace Vela::UiBase
