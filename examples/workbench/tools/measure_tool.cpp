// SPDX-License-Identifier: MIT
#include "measure_tool.h"

#include <workbench/commands/mode_command.h>
#include <workbench/mesh_view.h>
#include <workbench/tools/tool_cursors.h>

#include <QKeyEvent>

namespace Workbench {
namespace {

constexpr QLatin1String MeasureAction("measure");

std::optional<QVector3D> surfaceAt(MeshView& view, const QMouseEvent& event) {
  const auto hit = view.pick(event.position().toPoint());
  return hit ? std::optional(hit->point) : std::nullopt;
}

} // namespace

MeasureTool::MeasureTool(MeshView* view) : MeshTool(view) { setOperatingCursor(Qt::CrossCursor); }

void MeasureTool::activate() {
  setIdleCursor(crosshairCursor(QStringLiteral("measure"))); // not before: an icon takes time
  MeshTool::activate();
}

bool MeasureTool::mousePress(QMouseEvent* event) {
  MeshView* const view = meshView();
  const auto point = view ? surfaceAt(*view, *event) : std::nullopt;
  if (!point || !MeshTool::mousePress(event))
    return false;
  m_beganHere = !view->measurements().isBegun();
  m_keepsPoint = false;
  if (m_beganHere)
    view->measurements().begin(*point);
  return true;
}

bool MeasureTool::mouseMove(QMouseEvent* event) {
  const bool taken = MeshTool::mouseMove(event);
  if (MeshView* const view = meshView(); view && view->measurements().isBegun() && (taken || isActive()))
    view->measurements().moveTo(m_beganHere && taken && !isDragging() ? std::nullopt
                                                                      : surfaceAt(*view, *event));
  return taken;
}

bool MeasureTool::mouseRelease(QMouseEvent* event) {
  MeshView* const view = meshView();
  if (!view || !isOperating() || event->button() != pressEvent().button())
    return false;
  const bool isFirstClick = m_beganHere && !isDragging();
  const auto point = surfaceAt(*view, *event);
  m_keepsPoint = isFirstClick || !m_beganHere;
  if (point && !isFirstClick)
    finish(*view, *point, event->modifiers());
  return MeshTool::mouseRelease(event);
}

void MeasureTool::finish(MeshView& view, const QVector3D& point, Qt::KeyboardModifiers modifiers) {
  Measurements& measurements = view.measurements();
  const std::size_t before = measurements.distances().size();
  measurements.finish(point);
  if (measurements.distances().size() == before)
    return;
  const Measurements::Distance& measured = measurements.distances().back();
  tell(ModeCommand::idOf(MeasureMode), MeasureAction, modifiers, {measured.from, measured.to});
}

bool MeasureTool::perform(const Vela::UiBase::ToolOperation& operation) {
  MeshView* const view = meshView();
  if (!view || operation.command != ModeCommand::idOf(MeasureMode) || operation.action != MeasureAction ||
      operation.positions.size() != 2 || view->mesh().isEmpty())
    return false;
  view->measurements().begin(operation.positions[0]);
  view->measurements().finish(operation.positions[1]);
  return true;
}

bool MeasureTool::mouseDoubleClick(QMouseEvent*) { return true; }

bool MeasureTool::keyPress(QKeyEvent* event) {
  return event->key() == Qt::Key_Escape && !isOperating() && takeBack();
}

void MeasureTool::endOperation() {
  if (isOperating() && m_beganHere && !m_keepsPoint)
    takeBack();
  MeshTool::endOperation();
}

void MeasureTool::deactivate() {
  takeBack();
  MeshTool::deactivate();
}

bool MeasureTool::takeBack() {
  MeshView* const view = meshView();
  return view && view->measurements().takeBack();
}

} // namespace Workbench
