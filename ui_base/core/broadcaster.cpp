// SPDX-License-Identifier: MIT
#include "broadcaster.h"

#include <stdexcept>
#include <string>

namespace Taren::Core::detail {

void throwUnmanagedObserver(const std::type_info& type) {
  throw std::logic_error(std::string(type.name()) +
                         " needs to be a QObject with its lifetime managed by its parent!");
}

} // namespace Taren::Core::detail
