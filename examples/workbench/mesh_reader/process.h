// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace Workbench {

/// The arguments of the program, which name files: in UTF-8, whatever the system passes.
std::vector<std::string> fileNames(int argc, char** argv);

/// What the system calls a file that is named in UTF-8.
std::filesystem::path pathOf(const std::string& fileName);

/// What reading a file may take: a damaged count makes importers ask for any amount of memory or run for
/// ever.
struct ReadingLimits {
  std::uint64_t seconds = 0; ///< of the processor
  std::uint64_t memory = 0;  ///< in bytes

  static ReadingLimits forFile(const std::string& fileName, std::uint64_t machineMemory);
};

/// Three quarters of what is built in, in bytes.
std::uint64_t machineMemory();

/// Ends this process, or lets it run out of memory, at those limits; a crash leaves no dump and shows no
/// message.
void limitProcess(const ReadingLimits& limits);

/// Standard output takes bytes as they are.
void makeOutputBinary();

} // namespace Workbench
