// SPDX-License-Identifier: MIT
#include "frame_drawer.h"

#include <workbench/renderer.h>

#include <QElapsedTimer>
#include <QPromise>
#include <QThreadPool>

#include <algorithm>
#include <limits>

namespace Workbench {
namespace {

constexpr double AtOnce = 8; // ms; what takes longer is drawn on another thread

double workOf(const FrameRequest& request) {
  const double pixels = double(request.size.width()) * request.size.height();
  return pixels * request.samples * request.samples + double(request.mesh.triangles().size());
}

} // namespace

// What a thread draws, with the storage that is kept from frame to frame.
struct FrameDrawer::Job {
  FrameRequest request;
  Renderer renderer;
  Frame frame;
  std::stop_source stop;
  bool complete = false;
  double time = 0;

  void draw() {
    QElapsedTimer timer;
    timer.start();
    complete = renderer.draw(frame, request, stop.get_token());
    time = double(timer.nsecsElapsed()) / 1e6;
  }
};

FrameDrawer::FrameDrawer(QObject* parent) : QObject(parent) {
  connect(&m_watcher, &QFutureWatcher<void>::finished, this, [this] {
    take();
    Q_EMIT ready();
  });
}

FrameDrawer::~FrameDrawer() {
  if (m_job)
    m_job->stop.request_stop();
}

bool FrameDrawer::draw(const FrameRequest& request) {
  if (m_shown == request)
    return true;
  if (m_drawing) {
    if (m_job->request.samples > 1 && !(m_job->request == request))
      m_job->stop.request_stop();
    return false;
  }
  if (!m_job)
    m_job = std::make_shared<Job>();
  m_job->request = request;
  if (expectedTime(request) > AtOnce) {
    start();
    return false;
  }
  m_job->draw();
  take();
  return true;
}

// As long as the last one, if not larger. Of a mesh that was not drawn so far nothing is known.
double FrameDrawer::expectedTime(const FrameRequest& request) const {
  if (!m_shown.mesh.isCopyOf(request.mesh))
    return std::numeric_limits<double>::infinity();
  return m_time * std::max(workOf(request) / workOf(m_shown), 1.0);
}

// Not by the dispatcher: all its threads may be busy for seconds, with just what is to be looked at
// meanwhile.
void FrameDrawer::start() {
  m_drawing = true;
  const auto promise = std::make_shared<QPromise<void>>();
  m_watcher.setFuture(promise->future());
  promise->start();
  QThreadPool::globalInstance()->start([job = m_job, promise] {
    job->draw();
    promise->finish();
  });
}

void FrameDrawer::take() {
  m_drawing = false;
  if (m_job->complete) {
    std::swap(m_frame, m_job->frame);
    m_shown = m_job->request;
    m_time = m_job->time;
  }
  m_job->request = {}; // holds no mesh that is no longer shown
  m_job->stop = {};
}

} // namespace Workbench
