// SPDX-License-Identifier: MIT
#pragma once

#include <workbench/render/screen_geometry.h>

#include <QRect>

#include <array>
#include <cstdint>

namespace Workbench {

/// The z-buffer of one tile: for each sample the triangle that is nearest and how near it is.
class Tile {
public:
  static constexpr std::uint32_t NoTriangle = 0xFFFFFFFFU;

  /// Empties the tile and places it. @p area is in samples of the frame, TileSize by TileSize at most.
  void reset(const QRect& area);
  /// Fills what of a triangle lies in the tile. A sample belongs to a triangle when its centre does; of two
  /// triangles that share an edge exactly one gets the centres on it. At equal depth the first stays.
  void draw(const ScreenTriangle& triangle);

  /// Nothing was drawn so far.
  bool isEmpty() const noexcept { return m_empty; }
  const QRect& area() const noexcept { return m_area; }
  /// @p x and @p y count from the tile's corner.
  std::uint32_t triangle(int x, int y) const { return m_triangle[index(x, y)]; }
  float inverseDepth(int x, int y) const { return m_inverseDepth[index(x, y)]; }

private:
  static constexpr int Size = ScreenGeometry::TileSize;

  static std::size_t index(int x, int y) { return std::size_t(y) * Size + std::size_t(x); }
  template <typename Integer>
  void fill(const ScreenTriangle& triangle, Integer doubleArea, const QRect& samples);

  QRect m_area;
  bool m_empty = true;
  std::array<float, std::size_t(Size) * Size> m_inverseDepth;
  std::array<std::uint32_t, std::size_t(Size) * Size> m_triangle;
};

} // namespace Workbench
