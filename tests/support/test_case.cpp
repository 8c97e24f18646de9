// SPDX-License-Identifier: MIT
#include "test_case.h"

#include <QApplication>
#include <QRegularExpression>
#include <QSettings>
#include <QStandardPaths>

namespace Vela::Test {

void TestCase::init() {
  // The offscreen platform reports what it cannot do; that is not the code under test.
  static const QRegularExpression anyWarning(
      QStringLiteral("^(?!This plugin does not support|propagateSizeHints)"));
  QTest::failOnWarning(anyWarning);
}

std::unique_ptr<QApplication> makeApplication(int& argc, char** argv) {
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
    qputenv("QT_QPA_PLATFORM", "offscreen");
  QStandardPaths::setTestModeEnabled(true);
  QCoreApplication::setOrganizationName(QStringLiteral("vlk_ui_base_tests"));
  QCoreApplication::setApplicationName(QStringLiteral("vlk_ui_base_tests"));
  auto application = std::make_unique<QApplication>(argc, argv);
  QTEST_SET_MAIN_SOURCE_PATH
  return application;
}

void settle() {
  // Deferred deletions run only when an event loop returns, so they are sent by hand.
  for (int turn = 0; turn < 3; ++turn) {
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }
}

} // namespace Vela::Test
