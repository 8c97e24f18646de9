// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/commands/run_record.h>
#include <ui_base/tools/tool_operation.h>
#include <ui_base/ui_base_export.h>

#include <QDir>
#include <QJsonValue>
#include <QMap>
#include <QVariantMap>

#include <optional>

namespace Vela::UiBase {

/// What is compared between steps: values by their names, those of nested maps by "outer.inner".
using SessionState = QMap<QString, QJsonValue>;

/// One thing that the user did.
struct SessionStep {
  enum EKind : int {
    Command,
    Operation,
  };

  EKind kind = Command;
  int line = 0; ///< In the text it was read from, the first one is 1.
  /// @name Of a command
  /// @{
  QString command;
  int manager = 0; ///< The first manager that has such a command; else the number of the manager, from 1 on.
  std::optional<bool> checked; ///< Only of commands that can be checked.
  QVariantMap inputs;
  ERunOutcome outcome = RunSucceeded;
  /// @}
  ToolOperation operation; ///< Of an operation.
  SessionState changes;    ///< What is another value afterwards; null for what is gone.
  bool isCompared = true;  ///< Whether the state is known after it.
};

/// What somebody did with an application: commands with their inputs and operations of tools, in the order in
/// which they began, and how the state of the application changed with each. A plain value, and a text that
/// people read and write; it has no input events and no places in windows.
///
/// @code{.txt}
/// session 1
/// start
///   page = "mesh"
/// # Lines like this one are skipped.
/// command OpenMesh {"files":[{"$file":"bunny.obj"}]}
///   mesh = "69451 triangles, 5f0a1d22"
/// command MeasureMode on
/// operation Measure measure left (0, 1, 0.5) (0, 2, 0.5)
///   distances = [1]
/// @endcode
struct UI_BASE_EXPORT Session {
  static constexpr int format = 1;

  int startLine = 0;  ///< 0 where the text has no start: then only what it names is compared.
  SessionState start; ///< The state before the first step.
  QList<SessionStep> steps;

  /// Reads a text. @param folder what names of files are relative to. @param error gets, where the answer is
  /// nothing, the line and what is wrong with it; not null.
  static std::optional<Session> fromText(const QString& text, const QDir& folder, QString* error);
  /// The same from a file, whose folder counts.
  static std::optional<Session> fromFile(const QString& file, QString* error);
  /// The whole text.
  QString toText(const QDir& folder) const;
};

/// A state as it is compared: maps in it become names with a full stop.
UI_BASE_EXPORT SessionState sessionState(const QVariantMap& values);

} // namespace Vela::UiBase
