// SPDX-License-Identifier: MIT
#include "process.h"

#include <sys/resource.h>
#include <unistd.h>

namespace Workbench {
namespace {

void lower(decltype(RLIMIT_CPU) resource, rlim_t limit) {
  rlimit current{};
  if (getrlimit(resource, &current) == 0 && limit < current.rlim_cur) {
    current.rlim_cur = limit;
    setrlimit(resource, &current);
  }
}

} // namespace

std::vector<std::string> fileNames(int argc, char** argv) { return {argv + (argc > 0), argv + argc}; }

std::uint64_t machineMemory() {
  return std::uint64_t(sysconf(_SC_PHYS_PAGES)) * std::uint64_t(sysconf(_SC_PAGESIZE)) / 4 * 3;
}

void limitProcess(const ReadingLimits& limits) {
  lower(RLIMIT_CPU, limits.seconds);
  lower(RLIMIT_CORE, 0);
#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
  lower(RLIMIT_AS, limits.memory);
#endif
}

void makeOutputBinary() {}

} // namespace Workbench
