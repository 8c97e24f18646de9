// SPDX-License-Identifier: MIT
#pragma once

#include <workbench/camera.h>
#include <workbench/mesh.h>
#include <workbench/mesh_ops/triangle_selection.h>
#include <workbench/render/projection.h>
#include <workbench/render/render_style.h>

#include <QImage>
#include <QPoint>
#include <QRect>
#include <QSize>

#include <cstdint>
#include <optional>
#include <vector>

namespace Workbench {

/// All that a frame depends on. A value: copied for a thread that draws it, nothing that changes later on the
/// main thread reaches that.
struct FrameRequest {
  Mesh mesh;
  Camera camera;
  QSize size; ///< Device pixels.
  RenderStyle style;
  int samples = 1;             ///< Along either side of a pixel: 1 is quick, 2 smooths the edges.
  TriangleSelection selection; ///< The triangles drawn as selected.

  friend bool operator==(const FrameRequest& a, const FrameRequest& b) {
    return a.mesh.isCopyOf(b.mesh) && a.camera == b.camera && a.size == b.size && a.style == b.style &&
           a.samples == b.samples && a.selection == b.selection;
  }
};

/// A drawn frame: an image that remembers for every pixel what was drawn there.
class Frame {
public:
  /// What lies under a pixel.
  struct Hit {
    std::uint32_t triangle = 0; ///< Index in the mesh.
    QVector3D point;            ///< In the scene, on the triangle, at the middle of the pixel.
  };

  /// Null before anything was drawn. Its device pixel ratio is 1.
  const QImage& image() const noexcept { return m_image; }
  /// What was drawn at a pixel; nothing on the background and outside the frame.
  std::optional<Hit> pick(const QPoint& pixel) const;
  /// The triangles that pick() finds within a rectangle: each once, ascending. What reaches beyond the frame
  /// is ignored.
  std::vector<std::uint32_t> trianglesIn(const QRect& pixels) const;

private:
  friend class Renderer;

  /// Gets ready to keep these pixels, as drawn with such a projection of the samples.
  void reset(const QRect& area, const Projection& projection, int samples);
  std::size_t indexOf(int x, int y) const {
    return std::size_t(y - m_area.top()) * std::size_t(m_area.width()) + std::size_t(x - m_area.left());
  }

  QImage m_image;
  QRect m_area; // the pixels that are kept
  Projection m_projection;
  int m_samples = 1;
  std::vector<float> m_inverseDepth; // one value a pixel
  std::vector<std::uint32_t> m_triangle;
};

} // namespace Workbench
