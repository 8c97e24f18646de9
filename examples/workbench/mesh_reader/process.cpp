// SPDX-License-Identifier: MIT
#include "process.h"

#include <algorithm>
#include <system_error>

namespace Workbench {

std::filesystem::path pathOf(const std::string& fileName) {
  return {std::u8string(fileName.begin(), fileName.end())};
}

ReadingLimits ReadingLimits::forFile(const std::string& fileName, std::uint64_t machineMemory) {
  constexpr std::uint64_t LeastSeconds = 10;
  constexpr std::uint64_t BytesPerSecond = 1 << 20;
  constexpr std::uint64_t LeastMemory = std::uint64_t(1) << 30;
  constexpr std::uint64_t MemoryPerByte = 200;
  std::error_code unknown;
  const std::uintmax_t size = std::filesystem::file_size(pathOf(fileName), unknown);
  const std::uint64_t bytes = unknown ? 0 : size;
  // The bulk of a text glTF lies in other files.
  const bool hasOtherFiles = fileName.ends_with(".gltf") || fileName.ends_with(".GLTF");
  return {LeastSeconds + bytes / BytesPerSecond,
          hasOtherFiles ? machineMemory : std::min(machineMemory, LeastMemory + bytes * MemoryPerByte)};
}

} // namespace Workbench
