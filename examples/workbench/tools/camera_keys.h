// SPDX-License-Identifier: MIT
#pragma once

#include <workbench/camera.h>

#include <optional>

class QKeyEvent;

namespace Workbench {

/// Where a key takes the camera: the arrow keys turn it, with Shift they shift the picture, plus and minus
/// zoom.
/// @return nothing for any other key.
std::optional<Camera> movedByKey(const Camera& camera, const QKeyEvent& event, const QSizeF& viewport);

} // namespace Workbench
