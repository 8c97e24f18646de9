// SPDX-License-Identifier: MIT
#include "console.h"

#include <QString>

#include <cstdio>

namespace Workbench {

void print(const QString& text) {
  std::fputs(text.toLocal8Bit().constData(), stdout);
  std::fflush(stdout);
}

void printError(const QString& file, const QString& reason) {
  const QString text = file.isEmpty() ? reason : QStringLiteral("%1: %2").arg(file, reason);
  std::fprintf(stderr, "workbench: %s\n", text.toLocal8Bit().constData());
}

} // namespace Workbench
