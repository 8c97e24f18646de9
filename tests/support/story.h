// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

/// What a person sees while a test function runs: the visible widgets before each input, before a window is
/// closed and when the event loop has settled; told by what has come and gone since the time before. Each
/// function's story, of each row, is compared with the one in tests/support/stories, in a file for each
/// program that uses runTests(), as far as letters are drawn as then. Stories are recorded where
/// VELA_RECORD_STORIES is set: those of functions that have none are written down, those that differ from
/// time to time are from then on not compared, nor are those that nobody would read for their length. So
/// delete a file, run its program some times, also beside others, and look at what differs from the file
/// before.
namespace Vela::Test::Story {

/// Begins to watch the application.
void start();

/// Looks at the screen.
void look();

/// Compares the stories told since the last call. @return "function:row" of those that are others.
QStringList takeDifferences();

} // namespace Vela::Test::Story
