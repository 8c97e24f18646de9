// SPDX-License-Identifier: MIT
#include "view_fuzz.h"

using namespace Vela::Test;

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv) {
  qInstallMessageHandler([](QtMsgType type, const QMessageLogContext&, const QString& message) {
    if (type != QtFatalMsg) // what the platform cannot do
      return;
    qInstallMessageHandler(nullptr);
    qFatal("%s", qPrintable(message));
  });
  static const QApplication* const application = makeApplication(*argc, *argv).release(); // exit() is the end
  return application ? 0 : 1;
}

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
  const QByteArray bytes(reinterpret_cast<const char*>(data), qsizetype(size));
  if (const QString finding = ViewFuzz(Bytes(bytes)).run(); !finding.isEmpty())
    qFatal("%s", qPrintable(finding));
  return 0;
}
