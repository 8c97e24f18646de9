// SPDX-License-Identifier: MIT
#include "latest_task.h"

#include <tqm_mesh_kernel/dispatch.h>
#include <ui_base/commands/run_progress.h>

#include <QDebug>

namespace Workbench {

using Taren::Core::dispatchAsync;

namespace {

LatestTask::Deliver resultOf(const LatestTask::Work& work, const std::stop_token& stop) {
  try {
    return work(stop);
  } catch (const Vela::UiBase::RunCancelled&) {
    return {};
  } catch (const std::exception& error) {
    qWarning("A task in the background failed: %s", error.what());
    return {};
  }
}

} // namespace

LatestTask::LatestTask(QObject* parent) : QObject(parent) {
  m_delay.setSingleShot(true);
  m_delay.setInterval(0);
  connect(&m_delay, &QTimer::timeout, this, &LatestTask::run);
}

LatestTask::~LatestTask() { m_stop.request_stop(); }

void LatestTask::start(Work work) {
  cancel();
  m_work = std::move(work);
  m_pending = true;
  m_delay.start();
}

void LatestTask::cancel() {
  m_delay.stop();
  m_work = {};
  m_stop.request_stop();
  m_pending = false;
}

// The token also tells whether this object is still there: stops are requested on the main thread alone.
void LatestTask::run() {
  m_stop = {};
  dispatchAsync(
      [this, work = std::exchange(m_work, {}), stop = m_stop.get_token()] {
        const Deliver deliver = resultOf(work, stop);
        dispatchAsync(
            [this, deliver, stop] {
              if (stop.stop_requested())
                return;
              m_pending = false;
              if (deliver)
                deliver();
            },
            Taren::Core::MainThreadQoS);
      },
      Taren::Core::NormalQoS);
}

} // namespace Workbench
