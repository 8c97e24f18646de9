// SPDX-License-Identifier: MIT
#pragma once

class QString;

namespace Workbench {

/// Prints text to standard output, in the encoding of the terminal.
void print(const QString& text);
/// Prints a line to standard error that names the program, a file and what is wrong with it.
void printError(const QString& file, const QString& reason);

} // namespace Workbench
