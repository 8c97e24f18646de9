// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/tools/tool_operation.h>
#include <ui_base/views/view_responder.h>
#include <workbench/commands/workbench_command.h>

#include <memory>

namespace Vela::UiBase {
class InteractiveTool;
}

namespace Workbench {

/// Sets the point that the camera turns around. The command goes on after it was triggered: it takes the
/// view's input until a point of the surface is clicked. Escape, a right click, or triggering it again ends
/// it without a change. Drags of the other buttons and the wheel still move the camera.
class SetPivotCommand : public WorkbenchCommand, public Vela::UiBase::ViewResponder {
  Q_OBJECT
  COMMAND_ID(SetPivotCommand)

public:
  explicit SetPivotCommand(MeshViewController* controller);
  ~SetPivotCommand() override;

  bool isExecuting() const noexcept { return m_cursor != nullptr; }
  /// Ends it without a change. Does nothing when it is not executing.
  void cancel() override;

  QString obstacle() const override;
  /// Begins, or cancels.
  bool onExecuteAsync(bool checked) override;

  bool mousePress(QMouseEvent* event) override;
  bool mouseMove(QMouseEvent* event) override;
  bool mouseRelease(QMouseEvent* event) override;
  bool mouseDoubleClick(QMouseEvent* event) override;
  bool keyPress(QKeyEvent* event) override;

private:
  void begin(MeshViewController& controller);
  void lookAt(const QVector3D& point);
  void giveUp();
  bool perform(const Vela::UiBase::ToolOperation& operation);
  void end();

  std::shared_ptr<Vela::UiBase::InteractiveTool> m_cursor; // lies over the left button's tools meanwhile
};

} // namespace Workbench
