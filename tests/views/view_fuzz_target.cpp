// SPDX-License-Identifier: MIT
#include "view_fuzz.h"

#include <support/test_case.h>

#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
  static int argc = 1;
  static char name[] = "view_fuzzer";
  static char* argv[] = {name, nullptr};
  static const auto application = Vela::Test::makeApplication(argc, argv);
  Vela::Test::ViewFuzz fuzz(Vela::Test::Bytes(data, size));
  if (const QString finding = fuzz.run(); !finding.isEmpty()) {
    qCritical("%s", qPrintable(finding));
    std::abort();
  }
  return 0;
}
