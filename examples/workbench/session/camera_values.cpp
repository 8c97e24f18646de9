// SPDX-License-Identifier: MIT
#include "camera_values.h"

#include <ui_base/tools/operation_log.h>
#include <workbench/mesh_view.h>

#include <cmath>

namespace Workbench {

using Vela::UiBase::OperationLog;
using Vela::UiBase::ToolOperation;

namespace {

const QString& lookAction() {
  static const QString action = QStringLiteral("look");
  return action;
}

} // namespace

QVariantMap cameraValues(const Camera& camera) {
  const QVector3D at = camera.target();
  return {{QStringLiteral("target"), QVariantList{at.x(), at.y(), at.z()}},
          {QStringLiteral("yaw"), camera.yaw()},
          {QStringLiteral("pitch"), camera.pitch()},
          {QStringLiteral("distance"), camera.distance()}};
}

std::optional<Camera> cameraFrom(const QVariantMap& values, const Camera& like) {
  const QVariantList at = values.value(QStringLiteral("target")).toList();
  const double yaw = values.value(QStringLiteral("yaw")).toDouble();
  const double pitch = values.value(QStringLiteral("pitch")).toDouble();
  const double distance = values.value(QStringLiteral("distance")).toDouble();
  if (at.size() != 3 || !std::isfinite(distance) || distance <= 0 || std::abs(yaw) > 180 ||
      std::abs(pitch) > 90)
    return std::nullopt;
  const QVector3D target(at[0].toFloat(), at[1].toFloat(), at[2].toFloat());
  if (!std::isfinite(target.lengthSquared()))
    return std::nullopt;
  Camera camera = like;
  camera.place(target, yaw, pitch, distance);
  return camera;
}

void tellLook(const MeshView& view) {
  ToolOperation operation;
  operation.command = QStringLiteral("MeshView");
  operation.action = lookAction();
  operation.values = cameraValues(view.camera());
  OperationLog::Instance().tell(operation);
}

bool performLook(MeshView& view, const ToolOperation& operation) {
  const auto camera =
      operation.action == lookAction() ? cameraFrom(operation.values, view.camera()) : std::nullopt;
  if (camera)
    view.setCamera(*camera);
  return camera.has_value();
}

} // namespace Workbench
