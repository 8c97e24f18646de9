// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QTimer>

#include <functional>
#include <stop_token>

namespace Workbench {

/// Work on a thread of the dispatcher of which only the latest counts: what a preview or a panel shows while
/// its values change. Starting another one stops the one before and drops its result, however far it is.
///
/// For the main thread. Destroying it drops everything.
///
/// @code
/// m_task.start([mesh](const std::stop_token& stop) -> LatestTask::Deliver {
///   const Mesh result = smoothed(mesh, {}, RunProgress(stop)); // on a worker
///   return [result] { show(result); };                      // on the main thread
/// });
/// @endcode
class LatestTask : public QObject {
  Q_OBJECT

public:
  using Deliver = std::function<void()>;
  /// Throws, or looks at the token and returns anything, when it is stopped. What it throws ends it without a
  /// delivery.
  using Work = std::function<Deliver(const std::stop_token& stop)>;

  explicit LatestTask(QObject* parent = nullptr);
  ~LatestTask() override;

  /// How long it waits for yet another start before it begins, in milliseconds; 0 at first.
  void setDelay(int milliseconds) { m_delay.setInterval(milliseconds); }
  void start(Work work);
  void cancel();
  /// Something was started, and neither delivered nor cancelled.
  bool isPending() const noexcept { return m_pending; }

private:
  void run();

  QTimer m_delay;
  Work m_work;
  std::stop_source m_stop;
  bool m_pending = false;
};

} // namespace Workbench
