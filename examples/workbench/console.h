// SPDX-License-Identifier: MIT
#pragma once

class QString;

namespace Workbench {

/// Windows gives a program with windows no terminal: takes the one it was started from, where there is one.
/// First in main().
void useTerminal();
/// Prints text to standard output, in the encoding of the terminal.
void print(const QString& text);
/// Prints a line to standard error that names the program, a file and what is wrong with it.
void printError(const QString& file, const QString& reason);

} // namespace Workbench
