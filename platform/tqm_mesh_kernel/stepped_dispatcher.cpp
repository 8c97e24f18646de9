// SPDX-License-Identifier: MIT
#include "stepped_dispatcher.h"

#include "main_thread_queue.h"

#include <algorithm>

namespace Taren::Core {

SteppedDispatcher::SteppedDispatcher() = default;
SteppedDispatcher::~SteppedDispatcher() = default;

bool SteppedDispatcher::dispatchAsync(std::function<void()> task, EQualityOfService qos) {
  const std::lock_guard lock(m_mutex);
  if (m_refusing)
    return false;
  m_entries.push_back({std::move(task), qos});
  return true;
}

bool SteppedDispatcher::dispatchSync(const std::function<void()>& task, EQualityOfService) {
  {
    const std::lock_guard lock(m_mutex);
    if (m_refusing)
      return false;
  }
  runGuarded(task);
  return true;
}

bool SteppedDispatcher::step() {
  std::function<void()> task;
  {
    const std::lock_guard lock(m_mutex);
    if (m_entries.empty())
      return false;
    task = std::move(m_entries.front().task);
    m_entries.pop_front();
  }
  runGuarded(task);
  return true;
}

bool SteppedDispatcher::step(EQualityOfService qos) {
  std::function<void()> task;
  {
    const std::lock_guard lock(m_mutex);
    const auto found =
        std::find_if(m_entries.begin(), m_entries.end(), [qos](const Entry& e) { return e.qos == qos; });
    if (found == m_entries.end())
      return false;
    task = std::move(found->task);
    m_entries.erase(found);
  }
  runGuarded(task);
  return true;
}

void SteppedDispatcher::runAll() {
  while (step()) {
  }
}

std::size_t SteppedDispatcher::pending() const {
  const std::lock_guard lock(m_mutex);
  return m_entries.size();
}

std::size_t SteppedDispatcher::pending(EQualityOfService qos) const {
  const std::lock_guard lock(m_mutex);
  return static_cast<std::size_t>(
      std::count_if(m_entries.begin(), m_entries.end(), [qos](const Entry& e) { return e.qos == qos; }));
}

void SteppedDispatcher::setRefusing(bool refusing) {
  const std::lock_guard lock(m_mutex);
  m_refusing = refusing;
}

} // namespace Taren::Core
