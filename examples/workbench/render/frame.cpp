// SPDX-License-Identifier: MIT
#include "frame.h"

#include <workbench/render/tile.h>

#include <algorithm>

namespace Workbench {

void Frame::reset(const QRect& area, const Projection& projection, int samples) {
  m_area = area;
  m_projection = projection;
  m_samples = samples;
  const std::size_t pixels = std::size_t(area.width()) * std::size_t(area.height());
  m_inverseDepth.resize(pixels);
  m_triangle.resize(pixels);
}

std::optional<Frame::Hit> Frame::pick(const QPoint& pixel) const {
  if (!m_area.contains(pixel))
    return std::nullopt;
  const std::size_t at = indexOf(pixel.x(), pixel.y());
  if (m_triangle[at] == Tile::NoTriangle)
    return std::nullopt;
  const QPoint sample = pixel * m_samples;
  const QVector3D direction =
      m_projection.directionThrough(float(sample.x()) + 0.5F, float(sample.y()) + 0.5F);
  return Hit{m_triangle[at], m_projection.eye + direction / m_inverseDepth[at]};
}

std::vector<std::uint32_t> Frame::trianglesIn(const QRect& pixels) const {
  const QRect area = pixels.intersected(m_area);
  std::vector<std::uint32_t> triangles;
  for (int y = area.top(); y <= area.bottom(); ++y) {
    for (int x = area.left(); x <= area.right(); ++x) {
      const std::uint32_t triangle = m_triangle[indexOf(x, y)];
      if (triangle != Tile::NoTriangle && (triangles.empty() || triangles.back() != triangle))
        triangles.push_back(triangle);
    }
  }
  std::sort(triangles.begin(), triangles.end());
  triangles.erase(std::unique(triangles.begin(), triangles.end()), triangles.end());
  return triangles;
}

} // namespace Workbench
