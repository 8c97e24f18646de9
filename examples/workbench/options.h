// SPDX-License-Identifier: MIT
#pragma once

#include <QSize>
#include <QString>
#include <QStringList>

#include <optional>

namespace Workbench {

/// What the command line asks for.
struct Options {
  QStringList files;
  QString screenshot;    ///< The image file to write before the program ends; empty for none.
  QString record;        ///< The session file to write while the program is used; empty for none.
  QString replay;        ///< The session file to do again before the program ends; empty for none.
  QString trace;         ///< The trace file to write at the end; empty for none.
  QSize size{1280, 800}; ///< Of the window, in logical pixels.

  /// An answer to print instead of starting: to standard output with status 0, else to standard error.
  struct Answer {
    QString text;
    int status = 0;
  };
  std::optional<Answer> answer;

  /// Reads the arguments, the program's name first. Needs the application object.
  static Options parse(const QStringList& arguments);
};

} // namespace Workbench
