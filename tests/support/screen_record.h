// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QTest>

namespace Vela::Test {

/// How else a screen is compared: not at all, dark, or also where what is on it takes other room.
enum EVariants { OnlyAsItIs, AlsoDark, AllVariants };

/// Whether letters are drawn as they were when the screens were recorded; says it once where they are not.
bool drawsAsRecorded();

/// Compares what is on the screen with what was recorded under a name in tests/support/screens: a picture of
/// all visible windows, and a list of their widgets with places, focus, cursors and what a screen reader is
/// told. Then dark, in another language, in a larger font and mirrored, after each of which it has to be as
/// before. Records it instead where VELA_RECORD_SCREENS is set; look at what it recorded.
/// @return what differs, empty where nothing does, and also where letters are not drawn as they were when the
///     screens were recorded (another platform, another version of Qt, other fonts).
QString differenceFromScreen(const QString& name, EVariants variants = AllVariants);

} // namespace Vela::Test

/// Fails the test function where the screen is not as recorded. Times that change what is seen are the test's
/// to stop.
#define VELA_COMPARE_SCREEN(...) QCOMPARE(Vela::Test::differenceFromScreen(__VA_ARGS__), QString())
