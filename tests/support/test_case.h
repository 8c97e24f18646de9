// SPDX-License-Identifier: MIT
#pragma once

#include <QtTest/QtTest>
#include <QtWidgets/QtWidgets>

#include <functional>
#include <memory>

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

/// Runs the registered test classes of the executable one after another. @return how many failed.
int runTests(int argc, char** argv);

/// Turns the event loop until nothing is left to do.
void settle();

namespace detail {
bool registerTest(std::function<std::unique_ptr<QObject>()> make);
} // namespace detail

} // namespace Vela::Test

/// Registers a test class with its executable, whose main function runs them all.
#define VELA_TEST_MAIN(TestClass)                                                                            \
  [[maybe_unused]] static const bool registered##TestClass =                                                 \
      Vela::Test::detail::registerTest([] { return std::make_unique<TestClass>(); });
