// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/assistants/session_recorder.h>
#include <ui_base/assistants/session_replay.h>
#include <workbench/session/workbench_subject.h>

#include <QObject>

namespace Workbench {

/// A session with the workbench that is recorded, or replayed, as the command line asks for. A replay ends
/// the program: with status 0, or 1 when the file is no session or a step differs.
class SessionRun : public QObject {
  Q_OBJECT

public:
  /// Gives the program settings of its own for a replay, with the language and the palette of the user's.
  /// Before there is a window.
  static void useOwnSettings();

  /// @param window  shown already; outlives the run
  explicit SessionRun(MainWindow& window);

  ~SessionRun() override;

  /// Ends the program, after telling why, when the file cannot be written.
  void record(const QString& file);
  void replay(const QString& file);
  /// What the program ends with: 1 until the replay is whole.
  int status() const noexcept { return m_status; }

private:
  void endProgram();
  void finished(bool isWhole, const QString& why, int line);

  WorkbenchSubject m_subject;
  Vela::UiBase::SessionRecorder m_recorder;
  Vela::UiBase::SessionReplay m_replay;
  QString m_file;
  int m_status = 0;
};

} // namespace Workbench
