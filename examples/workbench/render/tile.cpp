// SPDX-License-Identifier: MIT
#include "tile.h"

namespace Workbench {
namespace {

constexpr int Half = ScreenGeometry::SubSamples / 2;
constexpr int SubSampleBits = ScreenGeometry::SubSampleBits;

// One edge of a triangle that runs clockwise on screen: not negative on the inner side.
template <typename Integer>
struct Edge {
  Integer value = 0; // at the sample reached so far
  Integer stepX = 0;
  Integer stepY = 0;

  Edge(const ScreenPoint& from, const ScreenPoint& to, int x, int y) {
    const Integer dx = Integer(to.x) - from.x;
    const Integer dy = Integer(to.y) - from.y;
    value = dx * (Integer(y) - from.y) - dy * (Integer(x) - from.x);
    // A centre on a left or top edge is in, on any other it is out.
    const bool leftOrTop = dy < 0 || (dy == 0 && dx > 0);
    if (!leftOrTop)
      value -= 1;
    stepX = -dy * ScreenGeometry::SubSamples;
    stepY = dx * ScreenGeometry::SubSamples;
  }
};

// 1 / depth over the frame.
struct DepthPlane {
  float base;
  float slopeX;
  float slopeY;
  float nearest;
  float farthest;

  DepthPlane(const std::array<ScreenPoint, 3>& v, double doubleArea, int x, int y) {
    const double x1 = double(v[1].x) - v[0].x;
    const double y1 = double(v[1].y) - v[0].y;
    const double x2 = double(v[2].x) - v[0].x;
    const double y2 = double(v[2].y) - v[0].y;
    const double z1 = double(v[1].inverseDepth) - v[0].inverseDepth;
    const double z2 = double(v[2].inverseDepth) - v[0].inverseDepth;
    const double inverseArea = 1 / doubleArea;
    const double gradientX = (z1 * y2 - z2 * y1) * inverseArea;
    const double gradientY = (z2 * x1 - z1 * x2) * inverseArea;
    base = float(v[0].inverseDepth + gradientX * (x - v[0].x) + gradientY * (y - v[0].y));
    slopeX = float(gradientX * ScreenGeometry::SubSamples);
    slopeY = float(gradientY * ScreenGeometry::SubSamples);
    const auto range = std::minmax({v[0].inverseDepth, v[1].inverseDepth, v[2].inverseDepth});
    farthest = range.first;
    nearest = range.second;
  }
  // Clamped: at the rim of a sliver the plane leaves the triangle's own range.
  float at(int column, int row) const {
    return std::clamp(base + slopeX * float(column) + slopeY * float(row), farthest, nearest);
  }
};

} // namespace

void Tile::reset(const QRect& area) {
  m_area = area;
  m_empty = true;
  m_inverseDepth.fill(0);
  m_triangle.fill(NoTriangle);
}

void Tile::draw(const ScreenTriangle& triangle) {
  const auto& [a, b, c] = triangle.corners;
  const auto [left, right] = std::minmax({a.x, b.x, c.x});
  const auto [top, bottom] = std::minmax({a.y, b.y, c.y});
  const QRect samples = QRect(QPoint((left + Half - 1) >> SubSampleBits, (top + Half - 1) >> SubSampleBits),
                              QPoint((right - Half) >> SubSampleBits, (bottom - Half) >> SubSampleBits))
                            .intersected(m_area);
  if (samples.isEmpty())
    return;
  const std::int64_t doubleArea =
      std::int64_t(b.x - a.x) * (c.y - a.y) - std::int64_t(b.y - a.y) * (c.x - a.x);
  if (doubleArea == 0)
    return;
  m_empty = false;
  ScreenTriangle clockwise = triangle;
  if (doubleArea < 0)
    std::swap(clockwise.corners[1], clockwise.corners[2]);
  const std::int64_t area = std::abs(doubleArea);
  // Up to this extent all products of two distances fit into 31 bits.
  constexpr int Small = 1 << 14;
  if (right - left < Small && bottom - top < Small)
    fill<std::int32_t>(clockwise, std::int32_t(area), samples);
  else
    fill<std::int64_t>(clockwise, area, samples);
}

template <typename Integer>
void Tile::fill(const ScreenTriangle& triangle, Integer doubleArea, const QRect& samples) {
  const auto& v = triangle.corners;
  const int x = (samples.left() << SubSampleBits) + Half;
  const int y = (samples.top() << SubSampleBits) + Half;
  Edge<Integer> ab(v[0], v[1], x, y);
  Edge<Integer> bc(v[1], v[2], x, y);
  Edge<Integer> ca(v[2], v[0], x, y);
  const DepthPlane depth(v, double(doubleArea), x, y);
  const int left = samples.left() - m_area.left();
  const int width = samples.width();
  for (int row = 0; row < samples.height(); ++row) {
    const std::size_t at = index(left, samples.top() - m_area.top() + row);
    float* const inverseDepths = m_inverseDepth.data() + at;
    std::uint32_t* const triangles = m_triangle.data() + at;
    Integer inAb = ab.value;
    Integer inBc = bc.value;
    Integer inCa = ca.value;
    bool entered = false;
    for (int column = 0; column < width; ++column) {
      if ((inAb | inBc | inCa) >= 0) {
        entered = true;
        const float z = depth.at(column, row);
        if (z > inverseDepths[column]) {
          inverseDepths[column] = z;
          triangles[column] = triangle.id;
        }
      } else if (entered) {
        break; // a triangle covers one run of a row
      }
      inAb += ab.stepX;
      inBc += bc.stepX;
      inCa += ca.stepX;
    }
    ab.value += ab.stepY;
    bc.value += bc.stepY;
    ca.value += ca.stepY;
  }
}

} // namespace Workbench
