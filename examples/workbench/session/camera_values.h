// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/tools/tool_operation.h>
#include <workbench/camera.h>

namespace Workbench {

class MeshView;

/// Where a camera stands, as values of an operation, and the other way round.
QVariantMap cameraValues(const Camera& camera);
/// @param like  what else the camera has
/// @return nothing when they are no such values.
std::optional<Camera> cameraFrom(const QVariantMap& values, const Camera& like);

/// Tells that the user has turned, shifted or magnified the picture.
void tellLook(const MeshView& view);
/// Does that again.
bool performLook(MeshView& view, const Vela::UiBase::ToolOperation& operation);

} // namespace Workbench
