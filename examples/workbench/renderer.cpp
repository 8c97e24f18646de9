// SPDX-License-Identifier: MIT
#include "renderer.h"

#include <workbench/render/surface_shader.h>
#include <workbench/render/tile.h>

#include <oneapi/tbb/parallel_for.h>

namespace Workbench {

// One frame while it is drawn.
class Renderer::Frame {
public:
  Frame(Renderer& renderer, const Mesh& mesh, const RenderStyle& style, const TriangleSelection& selection)
      : m_renderer(renderer),
        m_scene{mesh,
                selection,
                renderer.m_projection,
                Lighting(renderer.m_projection.axes, style),
                style.shading,
                float(renderer.m_oversampling)},
        m_oversampling(renderer.m_oversampling),
        m_size(renderer.m_image.size()),
        m_pixels(reinterpret_cast<QRgb*>(renderer.m_image.bits())),
        m_stride(std::size_t(renderer.m_image.bytesPerLine()) / sizeof(QRgb)) {}

  void drawTile(int column, int row) const {
    constexpr int Size = ScreenGeometry::TileSize;
    Tile tile;
    tile.reset(
        QRect(column * Size, row * Size, Size, Size).intersected(QRect(QPoint(), m_size * m_oversampling)));
    m_renderer.m_geometry.visitTile(column, row,
                                    [&tile](const ScreenTriangle& triangle) { tile.draw(triangle); });
    if (tile.isEmpty()) {
      clear(tile);
      return;
    }
    SurfaceShader shader(m_scene, tile.area().topLeft());
    for (int y = 0; y < tile.area().height(); y += m_oversampling)
      drawRow(tile, shader, y);
  }

private:
  void clear(const Tile& tile) const {
    const QRect pixels(tile.area().topLeft() / m_oversampling, tile.area().size() / m_oversampling);
    for (int y = pixels.top(); y <= pixels.bottom(); ++y) {
      const auto left = std::size_t(pixels.left());
      const auto width = std::size_t(pixels.width());
      std::fill_n(m_pixels + std::size_t(y) * m_stride + left, width, m_display(backgroundOf(y)));
      const std::size_t kept = std::size_t(y) * std::size_t(m_size.width()) + left;
      std::fill_n(m_renderer.m_inverseDepth.data() + kept, width, 0.0F);
      std::fill_n(m_renderer.m_triangle.data() + kept, width, Tile::NoTriangle);
    }
  }

  QVector3D backgroundOf(int y) const {
    return m_scene.lighting.background((float(y) + 0.5F) / float(m_size.height()));
  }

  // One row of pixels; keeps the first sample of each for picking.
  void drawRow(const Tile& tile, SurfaceShader& shader, int y) const {
    const int step = m_oversampling;
    const auto left = std::size_t(tile.area().left() / step);
    const auto row = std::size_t((tile.area().top() + y) / step);
    const QVector3D background = backgroundOf(int(row));
    const QRgb backgroundColor = m_display(background);
    QRgb* const pixels = m_pixels + row * m_stride + left;
    const std::size_t kept = row * std::size_t(m_size.width()) + left;
    float* const inverseDepth = m_renderer.m_inverseDepth.data() + kept;
    std::uint32_t* const triangle = m_renderer.m_triangle.data() + kept;
    for (int x = 0, i = 0; x < tile.area().width(); x += step, ++i) {
      triangle[i] = tile.triangle(x, y);
      inverseDepth[i] = tile.inverseDepth(x, y);
      if (step == 1 || isOneTriangle(tile, x, y))
        pixels[i] = triangle[i] == Tile::NoTriangle ? backgroundColor
                                                    : m_display(sample(tile, shader, x, y, background));
      else
        pixels[i] = m_display(mix(tile, shader, x, y, background));
    }
  }

  bool isOneTriangle(const Tile& tile, int x, int y) const {
    const std::uint32_t first = tile.triangle(x, y);
    for (int v = 0; v < m_oversampling; ++v) {
      for (int u = 0; u < m_oversampling; ++u) {
        if (tile.triangle(x + u, y + v) != first)
          return false;
      }
    }
    return true;
  }

  QVector3D mix(const Tile& tile, SurfaceShader& shader, int x, int y, const QVector3D& background) const {
    QVector3D light;
    for (int v = 0; v < m_oversampling; ++v) {
      for (int u = 0; u < m_oversampling; ++u)
        light += sample(tile, shader, x + u, y + v, background);
    }
    return light / float(m_oversampling * m_oversampling);
  }

  QVector3D sample(const Tile& tile, SurfaceShader& shader, int x, int y, const QVector3D& background) const {
    const std::uint32_t triangle = tile.triangle(x, y);
    if (triangle == Tile::NoTriangle)
      return background;
    return shader.shade(triangle, x, y);
  }

  Renderer& m_renderer;
  SurfaceScene m_scene;
  const DisplayColors& m_display = DisplayColors::instance();
  int m_oversampling;
  QSize m_size; // in pixels
  QRgb* m_pixels;
  std::size_t m_stride;
};

void Renderer::render(const Mesh& mesh, const Camera& camera, const QSize& size, const RenderStyle& style,
                      int oversampling, const TriangleSelection& selection) {
  m_oversampling = std::clamp(oversampling, 1, 4);
  if (m_image.size() != size || !m_image.isDetached())
    m_image = QImage(size, QImage::Format_RGB32);
  if (m_image.isNull())
    return;
  const QSize samples = size * m_oversampling;
  m_projection = Projection(camera, samples);
  const std::size_t pixels = std::size_t(size.width()) * std::size_t(size.height());
  m_inverseDepth.resize(pixels);
  m_triangle.resize(pixels);
  m_geometry.build(mesh, m_projection, samples);

  const Frame frame(*this, mesh, style, selection);
  const int columns = m_geometry.tileColumns();
  oneapi::tbb::parallel_for(0, columns * m_geometry.tileRows(),
                            [&](int tile) { frame.drawTile(tile % columns, tile / columns); });
}

std::optional<Renderer::Hit> Renderer::pick(const QPoint& pixel) const {
  if (!m_image.rect().contains(pixel))
    return std::nullopt;
  const std::size_t at = std::size_t(pixel.y()) * std::size_t(m_image.width()) + std::size_t(pixel.x());
  if (m_triangle[at] == Tile::NoTriangle)
    return std::nullopt;
  const QPoint sample = pixel * m_oversampling;
  const QVector3D direction =
      m_projection.directionThrough(float(sample.x()) + 0.5F, float(sample.y()) + 0.5F);
  return Hit{m_triangle[at], m_projection.eye + direction / m_inverseDepth[at]};
}

std::vector<std::uint32_t> Renderer::trianglesIn(const QRect& devicePixels) const {
  const QRect area = devicePixels.intersected(m_image.rect());
  std::vector<std::uint32_t> triangles;
  for (int y = area.top(); y <= area.bottom(); ++y) {
    const std::uint32_t* const row = m_triangle.data() + std::size_t(y) * std::size_t(m_image.width());
    for (int x = area.left(); x <= area.right(); ++x) {
      const std::uint32_t triangle = row[x];
      if (triangle != Tile::NoTriangle && (triangles.empty() || triangles.back() != triangle))
        triangles.push_back(triangle);
    }
  }
  std::sort(triangles.begin(), triangles.end());
  triangles.erase(std::unique(triangles.begin(), triangles.end()), triangles.end());
  return triangles;
}

} // namespace Workbench
