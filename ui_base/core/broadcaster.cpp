// SPDX-License-Identifier: MIT
#include "broadcaster.h"

#include <stdexcept>
#include <string>

namespace Taren::Core::detail {

const std::function<void()>& emptyTask() noexcept {
  static const std::function<void()>& task = *new std::function<void()>([] {});
  return task;
}

void throwUnmanagedObserver(const std::type_info& type) {
  throw std::logic_error(std::string(type.name()) +
                         " needs to be a QObject with its lifetime managed by its parent!");
}

} // namespace Taren::Core::detail
