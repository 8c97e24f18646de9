// SPDX-License-Identifier: MIT
#include "dispatch.h"

#include "i_dispatcher.h"
#include "qt_tbb_dispatcher.h"

#include <QCoreApplication>
#include <QThread>

#include <atomic>

namespace Taren::Core {

namespace {

std::atomic<IDispatcher*> installedDispatcher{nullptr};

IDispatcher& currentDispatcher() {
  IDispatcher* const installed = installedDispatcher.load(std::memory_order_acquire);
  return installed ? *installed : QtTbbDispatcher::instance();
}

} // namespace

IDispatcher::~IDispatcher() = default;

IDispatcher* setDispatcher(IDispatcher* dispatcher) noexcept {
  return installedDispatcher.exchange(dispatcher, std::memory_order_acq_rel);
}

bool dispatchAsync(const std::function<void()>& task, EQualityOfService qos) {
  return currentDispatcher().dispatchAsync(task, qos);
}

bool dispatchAsync(std::function<void()>&& task, EQualityOfService qos) {
  return currentDispatcher().dispatchAsync(std::move(task), qos);
}

bool dispatchSync(const std::function<void()>& task, EQualityOfService qos) {
  return currentDispatcher().dispatchSync(task, qos);
}

bool isMainThread() noexcept {
  const QCoreApplication* const application = QCoreApplication::instance();
  return !application || QThread::currentThread() == application->thread();
}

} // namespace Taren::Core
