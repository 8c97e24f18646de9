// SPDX-License-Identifier: MIT
#include "test_case.h"

#include "story.h"

#include <vlk_common_res/styles.h>

#include <algorithm>
#include <vector>

namespace Vela::Test {

namespace {

using MakeTest = std::function<std::unique_ptr<QObject>()>;

std::vector<MakeTest>& registeredTests() {
  static std::vector<MakeTest> tests;
  return tests;
}

/// What is seen otherwise only once is due to the time that the machine took.
bool passes(const MakeTest& make, const QStringList& arguments) {
  bool passed = QTest::qExec(make().get(), arguments) == 0;
  QStringList different = Story::takeDifferences();
  for (int again = 0; passed && !different.isEmpty() && again < 2; ++again) {
    passed = QTest::qExec(make().get(), arguments.first(1) + different) == 0;
    different = Story::takeDifferences();
  }
  return passed && different.isEmpty();
}

} // namespace

bool detail::registerTest(MakeTest make) {
  registeredTests().push_back(std::move(make));
  return true;
}

int runTests(int argc, char** argv) {
  const auto application = makeApplication(argc, argv);
  Story::start();
  return static_cast<int>(
      std::count_if(registeredTests().begin(), registeredTests().end(),
                    [&](const MakeTest& make) { return !passes(make, QCoreApplication::arguments()); }));
}

void TestCase::init() {
  // The platforms report what they cannot do, such as small windows on Windows; that is not the code under
  // test.
  static const QRegularExpression anyWarning(QStringLiteral(
      "^(?!This plugin does not support|propagateSizeHints|setGeometry: Unable|queryDarkBorder: Unable)"));
  QTest::failOnWarning(anyWarning);
}

std::unique_ptr<QApplication> makeApplication(int& argc, char** argv) {
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
    qputenv("QT_QPA_PLATFORM", "offscreen");
  QStandardPaths::setTestModeEnabled(true);
  QSettings::setDefaultFormat(QSettings::IniFormat); // not in the registry of Windows
  QCoreApplication::setOrganizationName(QStringLiteral("vlk_ui_base_tests"));
  QCoreApplication::setApplicationName(QStringLiteral("vlk_ui_base_tests"));
  auto application = std::make_unique<QApplication>(argc, argv);
  QApplication::setCursorFlashTime(0);
  auto& styles = Resource::Styles::Instance();
  QApplication::setPalette(styles.widgetPalette());
  QObject::connect(&styles, &Resource::Styles::widgetPaletteChanged, application.get(),
                   [](const QPalette& palette) { QApplication::setPalette(palette); });
  return application;
}

void settle() {
  // Deferred deletions run only when an event loop returns, so they are sent by hand.
  for (int turn = 0; turn < 3; ++turn) {
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }
  Story::look();
}

} // namespace Vela::Test
