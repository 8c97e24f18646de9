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
  std::fprintf(stderr, "workbench: %s: %s\n", file.toLocal8Bit().constData(),
               reason.toLocal8Bit().constData());
}

} // namespace Workbench
