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

// What a dispatcher gets in place of an empty function, which not every one would bear.
constexpr auto nothing = [] {};

} // namespace

IDispatcher::~IDispatcher() = default;

IDispatcher* setDispatcher(IDispatcher* dispatcher) noexcept {
  return installedDispatcher.exchange(dispatcher, std::memory_order_acq_rel);
}

bool dispatchAsync(const std::function<void()>& task, EQualityOfService qos) {
  return task ? currentDispatcher().dispatchAsync(task, qos)
              : currentDispatcher().dispatchAsync(nothing, qos);
}

bool dispatchAsync(std::function<void()>&& task, EQualityOfService qos) {
  return currentDispatcher().dispatchAsync(task ? std::move(task) : nothing, qos);
}

bool dispatchSync(const std::function<void()>& task, EQualityOfService qos) {
  return task ? currentDispatcher().dispatchSync(task, qos) : currentDispatcher().dispatchSync(nothing, qos);
}

bool isMainThread() noexcept {
  const QCoreApplication* const application = QCoreApplication::instance();
  return !application || QThread::currentThread() == application->thread();
}

} // namespace Taren::Core
