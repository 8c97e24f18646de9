// SPDX-License-Identifier: MIT
#pragma once

#include <workbench/render/frame.h>
#include <workbench/render/screen_geometry.h>

#include <stop_token>

namespace Workbench {

/// A small software renderer with a z-buffer.
///
/// Draws on all processors at once. The same request gives the same image on any number of threads. An object
/// is used by one thread at a time, whichever; it keeps nothing but storage, which makes the next frame
/// quicker.
///
/// @code
/// Renderer renderer;
/// Frame frame;
/// renderer.draw(frame, {mesh, camera, QSize(1280, 800), RenderStyle::forPalette(palette)});
/// if (const auto hit = frame.pick(QPoint(640, 400)))
///   mark(hit->point);
/// @endcode
class Renderer {
public:
  /// Draws over a frame, whose storage is used again; images handed out stay as they are.
  /// @return false when it was stopped: the frame is not to be looked at then.
  bool draw(Frame& frame, const FrameRequest& request, const std::stop_token& stop = {});
  /// Finds what a frame would show in a part of it, without drawing one: a fraction of the work. There is no
  /// image, and outside the part nothing is found.
  static Frame find(const FrameRequest& request, const QRect& part);

private:
  class Painting;

  ScreenGeometry m_geometry;
};

/// The image of a frame, drawn here and now. On any thread.
QImage imageOf(const FrameRequest& request);

} // namespace Workbench
