// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/ui_base_export.h>

#include <QMetaType>
#include <QString>
#include <QVariantMap>

#include <chrono>

namespace Vela::UiBase {

/// What set off a run.
enum ERunSource : int {
  RunByProgram = 0, ///< No input of the user: a call, a timer, another thread.
  RunByMouse = 1,
  RunByKey = 2,  ///< A shortcut, or a key in a widget.
  RunByMenu = 3, ///< An entry of a QMenu, by mouse or key.
};

/// How a run ended.
enum ERunOutcome : int {
  RunUnderway = 0,
  RunSucceeded = 1, ///< The work answered true.
  RunDeclined = 2,  ///< The work answered false.
  RunStopped = 3,   ///< It was asked to end early, and did.
  RunFailed = 4,    ///< The work threw.
  RunRefused = 5,   ///< The dispatcher did not take the work.
  RunAbandoned = 6, ///< The command died before its work.
};

/// What is known of one run of a command. A plain value.
struct RunRecord {
  quint64 id = 0; ///< Rises with each run of the program.
  QString commandId;
  bool checked = false;
  /// What it works on; see CommandBase::inputs().
  QVariantMap inputs;
  /// The run in whose work or announcements this one was set off, on the same thread; 0 for none.
  quint64 parent = 0;
  ERunSource source = RunByProgram;
  ERunOutcome outcome = RunUnderway;
  /// When the run was set off.
  std::chrono::steady_clock::time_point begin;
  /// From then until the work began: what observers took, and the time in the queue of the dispatcher.
  std::chrono::nanoseconds wait{};
  /// What the work took, event loops that it turned included.
  std::chrono::nanoseconds duration{};
  /// The thread of the work, as in the traces of the kernel.
  quint64 thread = 0;
  /// The work was on the main thread and took longer than RunLog::mainThreadLimit().
  bool blockedMainThread = false;
  /// What the work said when it failed.
  QString message;
};

/// What started a run, for a user.
UI_BASE_EXPORT QString runSourceText(ERunSource source);
/// How a run ended, for a user.
UI_BASE_EXPORT QString runOutcomeText(ERunOutcome outcome);

} // namespace Vela::UiBase

Q_DECLARE_METATYPE(Vela::UiBase::RunRecord)
