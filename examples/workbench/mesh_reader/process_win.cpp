// SPDX-License-Identifier: MIT
#include "process.h"

#include <cstdio>
#include <fcntl.h>
#include <io.h>
// clang-format off
#include <windows.h>
#include <shellapi.h> // after it
// clang-format on

namespace Workbench {
namespace {

std::string utf8(const wchar_t* text) {
  const int size = WideCharToMultiByte(CP_UTF8, 0, text, -1, nullptr, 0, nullptr, nullptr);
  if (size <= 1)
    return {};
  std::string result(size, '\0');
  WideCharToMultiByte(CP_UTF8, 0, text, -1, result.data(), size, nullptr, nullptr);
  result.pop_back(); // the end that wide texts have too
  return result;
}

} // namespace

// The narrow arguments lack what the system's code page does not have.
std::vector<std::string> fileNames(int /*argc*/, char** /*argv*/) {
  std::vector<std::string> names;
  int count = 0;
  wchar_t** const arguments = CommandLineToArgvW(GetCommandLineW(), &count);
  for (int i = 1; arguments && i < count; ++i)
    names.push_back(utf8(arguments[i]));
  LocalFree(arguments);
  return names;
}

std::uint64_t machineMemory() {
  MEMORYSTATUSEX status = {};
  status.dwLength = sizeof status;
  return GlobalMemoryStatusEx(&status) ? status.ullTotalPhys / 4 * 3 : ~std::uint64_t(0);
}

void limitProcess(const ReadingLimits& limits) {
  constexpr std::uint64_t TicksPerSecond = 10'000'000;
  SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX);
  JOBOBJECT_EXTENDED_LIMIT_INFORMATION job = {};
  job.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_PROCESS_TIME | JOB_OBJECT_LIMIT_PROCESS_MEMORY;
  job.BasicLimitInformation.PerProcessUserTimeLimit.QuadPart = LONGLONG(limits.seconds * TicksPerSecond);
  job.ProcessMemoryLimit = limits.memory;
  // The handle stays open for as long as the process lives.
  if (const HANDLE handle = CreateJobObjectW(nullptr, nullptr)) {
    SetInformationJobObject(handle, JobObjectExtendedLimitInformation, &job, sizeof job);
    AssignProcessToJobObject(handle, GetCurrentProcess());
  }
}

void makeOutputBinary() { _setmode(_fileno(stdout), _O_BINARY); }

} // namespace Workbench
