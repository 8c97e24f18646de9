// SPDX-License-Identifier: MIT
#pragma once

#include <workbench/camera.h>
#include <workbench/mesh.h>
#include <workbench/mesh_ops/triangle_selection.h>
#include <workbench/render/projection.h>
#include <workbench/render/render_style.h>
#include <workbench/render/screen_geometry.h>

#include <QImage>
#include <QPoint>
#include <QRect>
#include <QSize>

#include <cstdint>
#include <optional>
#include <vector>

namespace Workbench {

/// A small software renderer with a z-buffer.
///
/// Draws on all processors at once into an image and keeps for every pixel what was drawn there. The same
/// mesh, camera, size and style give the same image on any number of threads. An object is used by one
/// thread at a time; images handed out stay as they are.
///
/// @code
/// Renderer renderer;
/// renderer.render(mesh, camera, QSize(1280, 800), RenderStyle::forPalette(palette));
/// if (const auto hit = renderer.pick(QPoint(640, 400)))
///   mark(hit->point);
/// @endcode
class Renderer {
public:
  /// What lies under a pixel.
  struct Hit {
    std::uint32_t triangle = 0; ///< Index in the mesh.
    QVector3D point;            ///< In the scene, on the triangle, at the middle of the pixel.
  };

  /// Draws a frame of @p size device pixels; nothing is kept of the frame before.
  /// @param oversampling  samples along either side of a pixel: 1 is quick, 2 smooths the edges
  /// @param selection  the triangles drawn as selected; only looked at during the call
  void render(const Mesh& mesh, const Camera& camera, const QSize& size, const RenderStyle& style,
              int oversampling = 1, const TriangleSelection& selection = {});

  /// The last frame; null before the first. Its device pixel ratio is 1.
  const QImage& image() const noexcept { return m_image; }
  /// What was drawn at a pixel of the last frame; nothing on the background and outside the frame.
  std::optional<Hit> pick(const QPoint& pixel) const;
  /// The triangles that pick() finds within a rectangle of the last frame: each once, ascending. What reaches
  /// beyond the frame is ignored.
  std::vector<std::uint32_t> trianglesIn(const QRect& devicePixels) const;

private:
  class Frame;

  QImage m_image;
  Projection m_projection; // of the samples
  int m_oversampling = 1;
  ScreenGeometry m_geometry;
  std::vector<float> m_inverseDepth; // one value a pixel
  std::vector<std::uint32_t> m_triangle;
};

} // namespace Workbench
