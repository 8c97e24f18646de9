// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/tools/interactive_tool.h>
#include <workbench/photos/photo_viewport.h>

namespace Workbench {

class PhotoView;

/// Shifts the photograph along with the mouse.
class PhotoPanTool : public Vela::UiBase::InteractiveTool {
public:
  explicit PhotoPanTool(PhotoView* view);

  bool mouseMove(QMouseEvent* event) override;

protected:
  void startOperation() override;

private:
  PhotoViewport m_start; // at the press
};

/// The wheel magnifies what is under the mouse.
class PhotoZoomTool : public Vela::UiBase::InteractiveTool {
public:
  explicit PhotoZoomTool(PhotoView* view);

  bool mouseWheel(QWheelEvent* event) override;
};

} // namespace Workbench
