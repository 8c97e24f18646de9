// SPDX-License-Identifier: MIT
#include "renderer.h"

#include <workbench/render/surface_shader.h>
#include <workbench/render/tile.h>

#include <oneapi/tbb/parallel_for.h>

namespace Workbench {

// One frame while it is drawn.
class Renderer::Painting {
public:
  Painting(Frame& frame, const ScreenGeometry& geometry, const FrameRequest& request)
      : m_frame(frame),
        m_geometry(geometry),
        m_scene{request.mesh,          request.selection,
                frame.m_projection,    Lighting(frame.m_projection.axes, request.style),
                request.style.shading, float(frame.m_samples)},
        m_samples(frame.m_samples),
        m_size(request.size),
        m_pixels(frame.m_image.isNull() ? nullptr : reinterpret_cast<QRgb*>(frame.m_image.bits())),
        m_stride(std::size_t(frame.m_image.bytesPerLine()) / sizeof(QRgb)) {}

  /// Keeps what is seen in a tile, and draws it when there is an image.
  void drawTile(int column, int row) const {
    constexpr int Size = ScreenGeometry::TileSize;
    Tile tile;
    tile.reset(QRect(column * Size, row * Size, Size, Size).intersected(QRect(QPoint(), m_size * m_samples)));
    m_geometry.visitTile(column, row, [&tile](const ScreenTriangle& triangle) { tile.draw(triangle); });
    keep(tile);
    if (!m_pixels)
      return;
    if (tile.isEmpty()) {
      clear(tile);
      return;
    }
    SurfaceShader shader(m_scene, tile.area().topLeft());
    for (int y = 0; y < tile.area().height(); y += m_samples)
      drawRow(tile, shader, y);
  }

private:
  // The first sample of each pixel.
  void keep(const Tile& tile) const {
    const QPoint corner = tile.area().topLeft() / m_samples;
    const QRect pixels = QRect(corner, tile.area().size() / m_samples).intersected(m_frame.m_area);
    for (int y = pixels.top(); y <= pixels.bottom(); ++y) {
      const std::size_t row = m_frame.indexOf(pixels.left(), y);
      for (int i = 0; i < pixels.width(); ++i) {
        const int x = (pixels.left() - corner.x() + i) * m_samples;
        m_frame.m_triangle[row + std::size_t(i)] = tile.triangle(x, (y - corner.y()) * m_samples);
        m_frame.m_inverseDepth[row + std::size_t(i)] = tile.inverseDepth(x, (y - corner.y()) * m_samples);
      }
    }
  }

  void clear(const Tile& tile) const {
    const QRect pixels(tile.area().topLeft() / m_samples, tile.area().size() / m_samples);
    for (int y = pixels.top(); y <= pixels.bottom(); ++y)
      std::fill_n(m_pixels + std::size_t(y) * m_stride + std::size_t(pixels.left()),
                  std::size_t(pixels.width()), m_display(backgroundOf(y)));
  }

  QVector3D backgroundOf(int y) const {
    return m_scene.lighting.background((float(y) + 0.5F) / float(m_size.height()));
  }

  // One row of pixels.
  void drawRow(const Tile& tile, SurfaceShader& shader, int y) const {
    const int step = m_samples;
    const auto row = std::size_t((tile.area().top() + y) / step);
    const QVector3D background = backgroundOf(int(row));
    const QRgb backgroundColor = m_display(background);
    QRgb* const pixels = m_pixels + row * m_stride + std::size_t(tile.area().left() / step);
    for (int x = 0, i = 0; x < tile.area().width(); x += step, ++i) {
      if (step == 1 || isOneTriangle(tile, x, y))
        pixels[i] = tile.triangle(x, y) == Tile::NoTriangle
                        ? backgroundColor
                        : m_display(sample(tile, shader, x, y, background));
      else
        pixels[i] = m_display(mix(tile, shader, x, y, background));
    }
  }

  bool isOneTriangle(const Tile& tile, int x, int y) const {
    const std::uint32_t first = tile.triangle(x, y);
    for (int v = 0; v < m_samples; ++v) {
      for (int u = 0; u < m_samples; ++u) {
        if (tile.triangle(x + u, y + v) != first)
          return false;
      }
    }
    return true;
  }

  QVector3D mix(const Tile& tile, SurfaceShader& shader, int x, int y, const QVector3D& background) const {
    QVector3D light;
    for (int v = 0; v < m_samples; ++v) {
      for (int u = 0; u < m_samples; ++u)
        light += sample(tile, shader, x + u, y + v, background);
    }
    return light / float(m_samples * m_samples);
  }

  QVector3D sample(const Tile& tile, SurfaceShader& shader, int x, int y, const QVector3D& background) const {
    const std::uint32_t triangle = tile.triangle(x, y);
    if (triangle == Tile::NoTriangle)
      return background;
    return shader.shade(triangle, x, y);
  }

  Frame& m_frame;
  const ScreenGeometry& m_geometry;
  SurfaceScene m_scene;
  const DisplayColors& m_display = DisplayColors::instance();
  int m_samples;
  QSize m_size; // in pixels
  QRgb* m_pixels;
  std::size_t m_stride;
};

bool Renderer::draw(Frame& frame, const FrameRequest& request, const std::stop_token& stop) {
  if (frame.m_image.size() != request.size || !frame.m_image.isDetached())
    frame.m_image = QImage(request.size, QImage::Format_RGB32);
  const int samples = std::clamp(request.samples, 1, 4);
  const QSize sampled = request.size * samples;
  frame.reset(frame.m_image.rect(), Projection(request.camera, sampled), samples);
  if (frame.m_image.isNull())
    return true;
  m_geometry.build(request.mesh, frame.m_projection, sampled);

  const Painting painting(frame, m_geometry, request);
  const int columns = m_geometry.tiles().width();
  oneapi::tbb::parallel_for(0, columns * m_geometry.tiles().height(), [&](int tile) {
    if (!stop.stop_requested())
      painting.drawTile(tile % columns, tile / columns);
  });
  return !stop.stop_requested();
}

// By whole tiles, so that everything is worked out just as for a frame that is drawn.
Frame Renderer::find(const FrameRequest& request, const QRect& part) {
  Frame frame;
  const int samples = std::clamp(request.samples, 1, 4);
  const QSize sampled = request.size * samples;
  frame.reset(part.intersected(QRect(QPoint(), request.size)), Projection(request.camera, sampled), samples);
  if (frame.m_area.isEmpty())
    return frame;
  const auto tileOf = [samples](const QPoint& pixel) {
    return QPoint(pixel.x() * samples / ScreenGeometry::TileSize,
                  pixel.y() * samples / ScreenGeometry::TileSize);
  };
  const QRect tiles(tileOf(frame.m_area.topLeft()), tileOf(frame.m_area.bottomRight()));
  ScreenGeometry geometry;
  geometry.build(request.mesh, frame.m_projection, sampled, tiles);

  const Painting painting(frame, geometry, request);
  oneapi::tbb::parallel_for(0, tiles.width() * tiles.height(), [&](int tile) {
    painting.drawTile(tiles.left() + tile % tiles.width(), tiles.top() + tile / tiles.width());
  });
  return frame;
}

QImage imageOf(const FrameRequest& request) {
  Frame frame;
  Renderer().draw(frame, request);
  return frame.image();
}

} // namespace Workbench
