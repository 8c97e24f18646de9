// SPDX-License-Identifier: MIT
#pragma once

#include "session.h"

namespace Vela::UiBase {

/// Reads the text of a session, line by line.
class SessionReader {
public:
  explicit SessionReader(const QDir& folder) : m_folder(folder) {}

  /// Once. @return nothing, and an error with its line, where the text is none.
  std::optional<Session> read(const QString& text, QString* error);

private:
  class Line;

  void readLine(const QString& text);
  void readFirst(Line& line);
  void readStep(const QString& kind, Line& line);
  void readCommand(Line& line, SessionStep& step) const;
  void readOperation(Line& line, ToolOperation& operation) const;
  void readDetail(Line& line);
  void readOutcome(Line& line, ERunOutcome outcome);
  static void readName(Line& line, QString& command, int& manager);
  static void expectEnd(const Line& line);

  QDir m_folder;
  Session m_session;
  int m_line = 0;
  bool m_begun = false;   // the first line is read
  bool m_started = false; // the state at the start begins
};

} // namespace Vela::UiBase
