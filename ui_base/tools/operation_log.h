// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/tools/tool_operation.h>
#include <ui_base/ui_base_export.h>

#include <QObject>

namespace Vela::UiBase {

/// Where tools and views tell what they did for the user, for whoever records a session. Keeps nothing, and
/// costs next to nothing while nobody listens. Main thread only.
///
/// @code
/// bool MeasureTool::mouseRelease(QMouseEvent* event) {
///   …
///   OperationLog::Instance().tell({"Measure", "measure", Qt::LeftButton, {}, {from, to}, {}});
/// }
/// bool MeasureTool::perform(const ToolOperation& operation) {   // the same again, without a mouse
///   …
/// }
/// @endcode
class UI_BASE_EXPORT OperationLog : public QObject {
  Q_OBJECT

public:
  /// The one of the process.
  static OperationLog& Instance();

  /// Whether anybody listens; for who has to work something out first.
  bool isHeard() const;
  /// Tells what was just done.
  void tell(const ToolOperation& operation) { Q_EMIT told(operation); }

Q_SIGNALS:
  /// A tool or a view did something for the user.
  void told(const Vela::UiBase::ToolOperation& operation);

private:
  OperationLog();
  ~OperationLog() override;
};

} // namespace Vela::UiBase
