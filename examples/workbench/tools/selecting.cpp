// SPDX-License-Identifier: MIT
#include "selecting.h"

#include <ui_base/tools/operation_log.h>
#include <workbench/mesh_ops/selection.h>
#include <workbench/mesh_view.h>
#include <workbench/session/camera_values.h>

#include <cmath>

namespace Workbench {

using Vela::UiBase::OperationLog;
using Vela::UiBase::ToolOperation;

namespace {

constexpr QLatin1String ClickAction("click");
constexpr QLatin1String ClickAgainAction("click_again");
constexpr QLatin1String WithinAction("within");
constexpr QLatin1String TriangleKey("triangle");
constexpr QLatin1String CameraKey("camera");
constexpr QLatin1String FrameKey("frame");

constexpr int LargestFrame = 16384;

void tell(const QString& command, QLatin1String action, Qt::KeyboardModifiers modifiers,
          const QList<QVector3D>& positions, const QVariantMap& values) {
  OperationLog::Instance().tell({command, action, Qt::LeftButton, modifiers, positions, values});
}

void selectThese(MeshView& view, const TriangleSelection& seen, Qt::KeyboardModifiers modifiers) {
  TriangleSelection selection = view.document().selection();
  if (modifiers.testFlag(Qt::ControlModifier))
    selection -= seen;
  else if (modifiers.testFlag(Qt::ShiftModifier))
    selection |= seen;
  else
    selection = seen;
  view.document().setSelection(selection);
}

/// Nothing where the operation names no triangle, or one that is not there.
std::optional<Frame::Hit> hitOf(const ToolOperation& operation, const MeshView& view) {
  bool isNumber = false;
  const uint triangle = operation.values.value(TriangleKey).toUInt(&isNumber);
  if (!isNumber || triangle >= view.mesh().triangles().size())
    return std::nullopt;
  return Frame::Hit{triangle, operation.positions.value(0)};
}

// Corners that were whole pixels are so again, whatever the way through the scene has added.
QPointF pixelOf(const std::optional<QPointF>& projected) {
  constexpr double Parts = 8;
  return QPointF(std::round(projected->x() * Parts) / Parts, std::round(projected->y() * Parts) / Parts);
}

bool performWithin(MeshView& view, const ToolOperation& operation) {
  const QVariantList numbers = operation.values.value(FrameKey).toList();
  const auto camera = cameraFrom(operation.values.value(CameraKey).toMap(), view.camera());
  if (!camera || numbers.size() != 3 || operation.positions.size() != 2 || view.mesh().isEmpty())
    return false;
  const MeshView::FrameSize frame{QSize(numbers[0].toInt(), numbers[1].toInt()), numbers[2].toInt()};
  const QRect whole(QPoint(), QSize(LargestFrame, LargestFrame));
  if (frame.size.isEmpty() || !whole.contains(QRect(QPoint(), frame.size)) || frame.samples < 1 ||
      frame.samples > 2)
    return false;
  const auto from = camera->project(operation.positions[0], frame.size);
  const auto to = camera->project(operation.positions[1], frame.size);
  if (!from || !to)
    return false;
  const QRectF pixels = QRectF(pixelOf(from), pixelOf(to)).normalized() & QRectF(whole);
  selectThese(view, view.trianglesIn(pixels.toAlignedRect(), *camera, frame), operation.modifiers);
  return true;
}

} // namespace

void Selecting::click(MeshView& view, const std::optional<Frame::Hit>& hit, Qt::KeyboardModifiers modifiers) {
  const bool adds = modifiers.testFlag(Qt::ShiftModifier);
  const bool toggles = modifiers.testFlag(Qt::ControlModifier) && !adds;
  MeshDocument& document = view.document();
  TriangleSelection selection = document.selection();
  if (!adds && !toggles)
    selection.clear();
  if (hit)
    selection.set(hit->triangle, !toggles || !selection.contains(hit->triangle));
  document.setSelection(selection);
}

void Selecting::clickAgain(MeshView& view, const Frame::Hit& hit) {
  const TriangleSelection part = selectConnected(view.mesh(), hit.triangle);
  TriangleSelection selection = view.document().selection();
  if (selection.contains(hit.triangle))
    selection |= part;
  else
    selection -= part;
  view.document().setSelection(selection);
}

void Selecting::within(MeshView& view, const QRectF& rectangle, Qt::KeyboardModifiers modifiers) {
  selectThese(view, view.trianglesIn(rectangle), modifiers);
}

void Selecting::tellClick(const QString& command, const std::optional<Frame::Hit>& hit,
                          Qt::KeyboardModifiers modifiers) {
  if (hit)
    tell(command, ClickAction, modifiers, {hit->point}, {{TriangleKey, hit->triangle}});
  else
    tell(command, ClickAction, modifiers, {}, {});
}

void Selecting::tellClickAgain(const QString& command, const Frame::Hit& hit) {
  tell(command, ClickAgainAction, {}, {hit.point}, {{TriangleKey, hit.triangle}});
}

void Selecting::tellWithin(const QString& command, MeshView& view, const QRectF& rectangle,
                           Qt::KeyboardModifiers modifiers) {
  if (!OperationLog::Instance().isHeard())
    return;
  const Camera& camera = view.camera();
  const MeshView::FrameSize frame = view.frameSize();
  tell(command, WithinAction, modifiers,
       {camera.pointInTargetPlane(rectangle.topLeft(), view.size()),
        camera.pointInTargetPlane(rectangle.bottomRight(), view.size())},
       {{CameraKey, cameraValues(camera)},
        {FrameKey, QVariantList{frame.size.width(), frame.size.height(), frame.samples}}});
}

bool Selecting::perform(MeshView& view, const ToolOperation& operation) {
  if (operation.action == WithinAction)
    return performWithin(view, operation);
  const auto hit = hitOf(operation, view);
  if (operation.values.contains(TriangleKey) != hit.has_value() || view.mesh().isEmpty())
    return false;
  if (operation.action == ClickAction) {
    click(view, hit, operation.modifiers);
    return true;
  }
  if (operation.action != ClickAgainAction || !hit)
    return false;
  clickAgain(view, *hit);
  return true;
}

} // namespace Workbench
