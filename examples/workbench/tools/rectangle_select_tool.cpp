// SPDX-License-Identifier: MIT
#include "rectangle_select_tool.h"

#include <workbench/commands/mode_command.h>
#include <workbench/mesh_view.h>
#include <workbench/tools/selecting.h>
#include <workbench/tools/tool_cursors.h>

namespace Workbench {

RectangleSelectTool::RectangleSelectTool(MeshView* view) : MeshTool(view) {
  setOperatingCursor(Qt::CrossCursor);
}

void RectangleSelectTool::activate() {
  setIdleCursor(crosshairCursor(QStringLiteral("rectangle_selection"))); // not before: an icon takes time
  MeshTool::activate();
}

bool RectangleSelectTool::mouseMove(QMouseEvent* event) {
  if (!MeshTool::mouseMove(event))
    return false;
  if (MeshView* const view = meshView(); view && isDragging())
    view->setRubberBand(QRectF(pressEvent().position(), event->position()).normalized());
  return true;
}

bool RectangleSelectTool::mouseRelease(QMouseEvent* event) {
  const QRectF rectangle = QRectF(pressEvent().position(), event->position()).normalized();
  const Qt::KeyboardModifiers modifiers = pressEvent().modifiers();
  const bool isClick = !isDragging();
  if (!MeshTool::mouseRelease(event))
    return false;
  MeshView* const view = meshView();
  if (!view || view->mesh().isEmpty())
    return true;
  const QString command = ModeCommand::idOf(RectangleMode);
  if (isClick) {
    const auto hit = view->pick(event->position().toPoint());
    Selecting::tellClick(command, hit, modifiers);
    Selecting::click(*view, hit, modifiers);
  } else {
    Selecting::tellWithin(command, *view, rectangle, modifiers);
    Selecting::within(*view, rectangle, modifiers);
  }
  return true;
}

bool RectangleSelectTool::perform(const Vela::UiBase::ToolOperation& operation) {
  MeshView* const view = meshView();
  return view && operation.command == ModeCommand::idOf(RectangleMode) &&
         Selecting::perform(*view, operation);
}

void RectangleSelectTool::endOperation() {
  if (MeshView* const view = meshView())
    view->setRubberBand({});
  MeshTool::endOperation();
}

} // namespace Workbench
