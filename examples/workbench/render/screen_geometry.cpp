// SPDX-License-Identifier: MIT
#include "screen_geometry.h"

#include <oneapi/tbb/blocked_range.h>
#include <oneapi/tbb/parallel_for.h>

namespace Workbench {
namespace {

// Beyond this many samples from the origin a triangle is clipped: positions in 1/256 of a sample then stay
// within 24 bits, and the products of the fill within 64.
constexpr float GuardBand = 32768;

enum Plane : std::uint32_t {
  Left = 1U << 0U,
  Right = 1U << 1U,
  Top = 1U << 2U,
  Bottom = 1U << 3U,
  Near = 1U << 4U,
  GuardLeft = 1U << 5U,
  GuardRight = 1U << 6U,
  GuardTop = 1U << 7U,
  GuardBottom = 1U << 8U,
  Visible = Left | Right | Top | Bottom | Near,
  Clip = Near | GuardLeft | GuardRight | GuardTop | GuardBottom,
};

// A point before the perspective division: frame position times depth, and the depth.
struct Homogeneous {
  float x = 0;
  float y = 0;
  float depth = 0;
};

Homogeneous transform(const Projection& projection, const QVector3D& point) {
  const QVector3D view = projection.toView(point);
  return {projection.centerX * view.z() + projection.focalLength * view.x(),
          projection.centerY * view.z() - projection.focalLength * view.y(), view.z()};
}

std::uint32_t outsideOf(const Homogeneous& p, const Projection& projection) {
  std::uint32_t code = 0;
  const auto add = [&code](bool outside, Plane plane) { code |= outside ? std::uint32_t(plane) : 0U; };
  add(p.x < 0, Left);
  add(p.x > 2 * projection.centerX * p.depth, Right);
  add(p.y < 0, Top);
  add(p.y > 2 * projection.centerY * p.depth, Bottom);
  // Written so that a value that is not a number counts as outside.
  add(!(p.depth >= projection.nearDistance), Near);
  add(!(p.x >= -GuardBand * p.depth), GuardLeft);
  add(!(p.x <= GuardBand * p.depth), GuardRight);
  add(!(p.y >= -GuardBand * p.depth), GuardTop);
  add(!(p.y <= GuardBand * p.depth), GuardBottom);
  return code;
}

std::int32_t toFixed(float samples) {
  const float scaled = samples * ScreenGeometry::SubSamples;
  return std::int32_t(scaled < 0 ? scaled - 0.5F : scaled + 0.5F);
}

ScreenPoint toScreen(const Homogeneous& p) {
  const float inverse = 1 / p.depth;
  return {toFixed(p.x * inverse), toFixed(p.y * inverse), inverse};
}

// Signed distance to a clip plane, not negative inside.
float insideDistance(const Homogeneous& p, Plane plane, float nearDistance) {
  switch (plane) {
  case GuardLeft:
    return p.x + GuardBand * p.depth;
  case GuardRight:
    return GuardBand * p.depth - p.x;
  case GuardTop:
    return p.y + GuardBand * p.depth;
  case GuardBottom:
    return GuardBand * p.depth - p.y;
  default:
    return p.depth - nearDistance;
  }
}

// Always cut from the inner end, so that two triangles cut their common edge in the same point.
Homogeneous cut(const Homogeneous& inside, float insideBy, const Homogeneous& outside, float outsideBy) {
  const float t = insideBy / (insideBy - outsideBy);
  return {inside.x + (outside.x - inside.x) * t, inside.y + (outside.y - inside.y) * t,
          inside.depth + (outside.depth - inside.depth) * t};
}

// A triangle cut by five planes has at most eight corners.
struct Polygon {
  std::array<Homogeneous, 8> corners;
  std::size_t count = 0;
  void add(const Homogeneous& corner) {
    if (count < corners.size())
      corners[count++] = corner;
  }
};

Polygon clip(const Polygon& polygon, Plane plane, float nearDistance) {
  Polygon result;
  for (std::size_t i = 0; i < polygon.count; ++i) {
    const Homogeneous& from = polygon.corners[i];
    const Homogeneous& to = polygon.corners[(i + 1) % polygon.count];
    const float fromBy = insideDistance(from, plane, nearDistance);
    const float toBy = insideDistance(to, plane, nearDistance);
    if (fromBy >= 0)
      result.add(from);
    if (fromBy >= 0 && toBy < 0)
      result.add(cut(from, fromBy, to, toBy));
    else if (fromBy < 0 && toBy >= 0)
      result.add(cut(to, toBy, from, fromBy));
  }
  return result;
}

} // namespace

void ScreenGeometry::build(const Mesh& mesh, const Projection& projection, const QSize& samples,
                           const QRect& tiles) {
  const QRect all(0, 0, (samples.width() + TileSize - 1) / TileSize,
                  (samples.height() + TileSize - 1) / TileSize);
  m_tiles = tiles.isNull() ? all : tiles.intersected(all);
  m_samples = QRect(m_tiles.topLeft() * TileSize, m_tiles.size() * TileSize) & QRect(QPoint(), samples);
  transformVertices(mesh, projection);

  m_chunks.resize(ChunkCount);
  const std::uint64_t triangles = mesh.triangles().size();
  oneapi::tbb::parallel_for(std::size_t(0), ChunkCount, [&](std::size_t index) {
    const auto begin = std::uint32_t(triangles * index / ChunkCount);
    const auto end = std::uint32_t(triangles * (index + 1) / ChunkCount);
    sortChunk(m_chunks[index], mesh, projection, begin, end);
  });
}

void ScreenGeometry::transformVertices(const Mesh& mesh, const Projection& projection) {
  const std::vector<QVector3D>& positions = mesh.positions();
  m_vertices.resize(positions.size());
  using Range = oneapi::tbb::blocked_range<std::size_t>;
  oneapi::tbb::parallel_for(Range(0, positions.size(), 4096), [&](const Range& range) {
    for (std::size_t i = range.begin(); i != range.end(); ++i) {
      const Homogeneous p = transform(projection, positions[i]);
      const std::uint32_t outside = outsideOf(p, projection);
      if ((outside & Clip) == 0)
        m_vertices[i].point = toScreen(p);
      m_vertices[i].outside = outside;
    }
  });
}

void ScreenGeometry::sortChunk(Chunk& chunk, const Mesh& mesh, const Projection& projection,
                               std::uint32_t begin, std::uint32_t end) const {
  chunk.resize(std::size_t(m_tiles.width()) * std::size_t(m_tiles.height()));
  for (std::vector<ScreenTriangle>& tile : chunk)
    tile.clear();
  for (std::uint32_t id = begin; id != end; ++id) {
    const Mesh::Triangle& t = mesh.triangles()[id];
    const Vertex& a = m_vertices[t[0]];
    const Vertex& b = m_vertices[t[1]];
    const Vertex& c = m_vertices[t[2]];
    if ((a.outside & b.outside & c.outside & Visible) != 0)
      continue;
    if (((a.outside | b.outside | c.outside) & Clip) == 0)
      addToTiles(chunk, {{a.point, b.point, c.point}, id});
    else
      addClipped(chunk, mesh, projection, id);
  }
}

void ScreenGeometry::addClipped(Chunk& chunk, const Mesh& mesh, const Projection& projection,
                                std::uint32_t id) const {
  Polygon polygon;
  for (const std::uint32_t corner : mesh.triangles()[id])
    polygon.add(transform(projection, mesh.positions()[corner]));
  for (const Plane plane : {Near, GuardLeft, GuardRight, GuardTop, GuardBottom})
    polygon = clip(polygon, plane, projection.nearDistance);
  for (std::size_t i = 2; i < polygon.count; ++i) {
    const std::array<Homogeneous, 3> part{polygon.corners[0], polygon.corners[i - 1], polygon.corners[i]};
    addToTiles(chunk, {{toScreen(part[0]), toScreen(part[1]), toScreen(part[2])}, id});
  }
}

void ScreenGeometry::addToTiles(Chunk& chunk, const ScreenTriangle& triangle) const {
  const auto& [a, b, c] = triangle.corners;
  const auto [left, right] = std::minmax({a.x, b.x, c.x});
  const auto [top, bottom] = std::minmax({a.y, b.y, c.y});
  // The samples whose centres lie in the bounding box; most triangles of a dense scan hold none.
  constexpr int Half = SubSamples / 2;
  const int firstX = std::max((left + Half - 1) >> SubSampleBits, m_samples.left());
  const int firstY = std::max((top + Half - 1) >> SubSampleBits, m_samples.top());
  const int lastX = std::min((right - Half) >> SubSampleBits, m_samples.right());
  const int lastY = std::min((bottom - Half) >> SubSampleBits, m_samples.bottom());
  if (firstX > lastX || firstY > lastY)
    return;
  for (int row = firstY / TileSize; row <= lastY / TileSize; ++row) {
    for (int column = firstX / TileSize; column <= lastX / TileSize; ++column)
      chunk[indexOf(column, row)].push_back(triangle);
  }
}

} // namespace Workbench
