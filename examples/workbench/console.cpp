// SPDX-License-Identifier: MIT
#include "console.h"

#include <QString>

#include <cstdio>

#ifdef Q_OS_WIN
#include <windows.h>
#endif

namespace Workbench {

void useTerminal() {
#ifdef Q_OS_WIN
  // What is redirected stays so.
  const bool isOutputOpen = GetStdHandle(STD_OUTPUT_HANDLE) != nullptr;
  const bool isErrorOpen = GetStdHandle(STD_ERROR_HANDLE) != nullptr;
  if ((isOutputOpen && isErrorOpen) || !AttachConsole(ATTACH_PARENT_PROCESS))
    return;
  [[maybe_unused]] std::FILE* opened = isOutputOpen ? stdout : std::freopen("CONOUT$", "w", stdout);
  opened = isErrorOpen ? stderr : std::freopen("CONOUT$", "w", stderr);
#endif
}

void print(const QString& text) {
  std::fputs(text.toLocal8Bit().constData(), stdout);
  std::fflush(stdout);
}

void printError(const QString& file, const QString& reason) {
  const QString text = file.isEmpty() ? reason : QStringLiteral("%1: %2").arg(file, reason);
  std::fprintf(stderr, "workbench: %s\n", text.toLocal8Bit().constData());
}

} // namespace Workbench
