// SPDX-License-Identifier: MIT
#pragma once

#include <workbench/render/frame.h>

#include <QFutureWatcher>
#include <QObject>

#include <memory>

namespace Workbench {

/// Draws the frames of a view without holding it up: at once what takes no time, and on a thread of the
/// thread pool what takes longer.
///
/// There is no queue. Whoever shows the frames asks for the one it needs whenever it paints, and does so
/// again on ready(): so it is always the newest that is drawn next. A frame with smooth edges that is no
/// longer asked for is given up; a quick one is drawn to its end, or nothing would be seen while a view is
/// turned.
///
/// For the main thread. May be destroyed at any time: what is being drawn then keeps what it needs, and ends.
///
/// @code
/// connect(&m_frames, &FrameDrawer::ready, this, [this] { update(); });
/// …
/// m_frames.draw(request); // in paintEvent()
/// painter.drawImage(0, 0, m_frames.frame().image());
/// @endcode
class FrameDrawer : public QObject {
  Q_OBJECT

public:
  explicit FrameDrawer(QObject* parent = nullptr);
  ~FrameDrawer() override;

  /// The frame that was drawn last, at first none.
  const Frame& frame() const noexcept { return m_frame; }
  /// What it shows.
  const FrameRequest& shown() const noexcept { return m_shown; }
  /// A frame is being drawn on another thread.
  bool isDrawing() const noexcept { return m_drawing; }

  /// Sees to it that frame() becomes this one. @return whether it is already.
  bool draw(const FrameRequest& request);

Q_SIGNALS:
  /// What was drawn on another thread is the frame(), or was given up.
  void ready();

private:
  struct Job;

  double expectedTime(const FrameRequest& request) const;
  void start();
  void take();

  Frame m_frame;
  FrameRequest m_shown;
  double m_time = 0; // that it took, in ms
  bool m_drawing = false;
  std::shared_ptr<Job> m_job; // shared with the thread that draws
  QFutureWatcher<void> m_watcher;
};

} // namespace Workbench
