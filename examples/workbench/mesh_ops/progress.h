// SPDX-License-Identifier: MIT
#pragma once

#include <exception>
#include <functional>
#include <stop_token>

namespace Workbench {

/// Thrown by an operation that was asked to stop; nothing of its result is left.
class OperationCancelled : public std::exception {
public:
  const char* what() const noexcept override { return "The operation was cancelled"; }
};

/// How far an operation is, and whether it shall go on.
///
/// The caller of an operation makes one and hands it over; the operation calls report() as it goes. A default
/// constructed object tells nobody and never stops. Each object serves one operation, and report() is for the
/// thread that runs it; isStopRequested() may be asked by any thread.
///
/// @code
/// std::stop_source stop; // stop.request_stop() from any thread
/// const Progress progress(stop.get_token(), [](double fraction) { showLater(fraction); });
/// const Mesh result = smoothed(mesh, {}, progress);
/// @endcode
class Progress {
public:
  /// Hears fractions from 0 to 1 that never fall, on the operation's thread, a hundred times at most.
  using Callback = std::function<void(double fraction)>;

  Progress() = default;
  explicit Progress(std::stop_token stop, Callback callback = {});

  bool isStopRequested() const noexcept { return m_stop.stop_requested(); }
  /// Tells how much is done when that is a whole percent more than was told last. Cheap enough to be called
  /// every few thousand steps.
  /// @throws OperationCancelled when a stop was requested.
  void report(double fraction) const;

private:
  std::stop_token m_stop;
  Callback m_callback;
  mutable int m_percent = -1; // told last
};

} // namespace Workbench
