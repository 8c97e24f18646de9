// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QTest>

#include <memory>

class QApplication;

namespace Vela::Test {

/// Base of every test class: a test function that provokes a warning it did not announce with
/// QTest::ignoreMessage() fails.
class TestCase : public QObject {
  Q_OBJECT

private Q_SLOTS:
  void init();
};

/// Makes the application object all tests run in: offscreen unless QT_QPA_PLATFORM is set, settings and
/// standard paths in a test-only place.
std::unique_ptr<QApplication> makeApplication(int& argc, char** argv);

/// Turns the event loop until nothing is left to do.
void settle();

} // namespace Vela::Test

/// The main function of a test executable with one test class.
#define VELA_TEST_MAIN(TestClass)                                                                            \
  int main(int argc, char** argv) {                                                                          \
    const auto application = Vela::Test::makeApplication(argc, argv);                                        \
    TestClass test;                                                                                          \
    return QTest::qExec(&test, argc, argv);                                                                  \
  }
