// SPDX-License-Identifier: MIT
#include "support_volume.h"

#include <workbench/vector3.h>

#include <algorithm>
#include <numbers>

namespace Workbench {
namespace {

constexpr std::size_t TrianglesPerReport = 4096;
constexpr double AngleTolerance = 1e-6; // of the cosine: faces at the limit itself need no support

// The footprint's columns. Corners are put on a raster that is much finer than the columns and has whole
// numbers: so each column finds just one of two triangles that share an edge, also where it meets the edge.
class Columns {
public:
  static constexpr std::int64_t Steps = 4096; // of the raster in a column

  struct Point {
    std::int64_t x = 0;
    std::int64_t z = 0;
  };

  Columns(const Bounds& bounds, int longerSide)
      : m_origin(bounds.min), m_width(double(bounds.size().x())), m_depth(double(bounds.size().z())) {
    const double longest = std::max(m_width, m_depth);
    const auto countFor = [&](double side) {
      return std::max<std::int64_t>(1, longest > 0 ? std::llround(longerSide * side / longest) : 1);
    };
    m_countX = countFor(m_width);
    m_countZ = countFor(m_depth);
  }

  std::int64_t countX() const { return m_countX; }
  double area() const { return m_width / double(m_countX) * (m_depth / double(m_countZ)); }

  Point rasterPoint(const QVector3D& p) const {
    const auto place = [](float at, float origin, double side, std::int64_t count) {
      const double part = side > 0 ? (double(at) - double(origin)) / side : 0;
      return std::int64_t(std::llround(part * double(count * Steps)));
    };
    return {place(p.x(), m_origin.x(), m_width, m_countX), place(p.z(), m_origin.z(), m_depth, m_countZ)};
  }

private:
  QVector3D m_origin;
  double m_width;
  double m_depth;
  std::int64_t m_countX = 1;
  std::int64_t m_countZ = 1;
};

// Where the line through the middle of a column meets the mesh.
struct Hit {
  std::uint32_t column;
  float height; // above the plate
  bool entering;
  bool needsSupport;

  bool operator<(const Hit& other) const {
    if (column != other.column)
      return column < other.column;
    return height != other.height ? height < other.height : entering && !other.entering;
  }
};

std::int64_t turn(const Columns::Point& a, const Columns::Point& b, const Columns::Point& p) {
  return (b.x - a.x) * (p.z - a.z) - (b.z - a.z) * (p.x - a.x);
}

// Whether the points on the edge belong to the triangle on its left; its neighbour has the same edge the
// other way round.
bool ownsEdge(const Columns::Point& a, const Columns::Point& b) { return b.z != a.z ? b.z > a.z : b.x < a.x; }

class HitSearch {
public:
  HitSearch(const Mesh& mesh, const SupportOptions& options, bool insideOut)
      : m_mesh(mesh),
        m_columns(mesh.bounds(), options.columns),
        m_limit(std::sin(options.limitAngle * std::numbers::pi / 180) + AngleTolerance),
        m_insideOut(insideOut) {}

  void add(std::size_t triangle);
  std::vector<Hit> takeSorted() {
    std::sort(m_hits.begin(), m_hits.end());
    return std::move(m_hits);
  }
  double columnArea() const { return m_columns.area(); }

private:
  using Corner = std::pair<Columns::Point, double>; // and its height

  void addColumns(const std::array<Corner, 3>& corners, bool entering, bool needsSupport);

  const Mesh& m_mesh;
  const Columns m_columns;
  const double m_limit; // the cosine of the angle to straight down
  const bool m_insideOut;
  std::vector<Hit> m_hits;
};

void HitSearch::add(std::size_t triangle) {
  const Mesh::Triangle& indices = m_mesh.triangles()[triangle];
  const auto plate = double(m_mesh.bounds().min.y());
  std::array<Corner, 3> corners;
  for (std::size_t i = 0; i < 3; ++i) {
    const QVector3D& p = m_mesh.positions()[indices[i]];
    corners[i] = {m_columns.rasterPoint(p), double(p.y()) - plate};
  }
  const std::int64_t area = turn(corners[0].first, corners[1].first, corners[2].first);
  if (area == 0)
    return; // upright
  if (area < 0)
    std::swap(corners[1], corners[2]);
  const double down = double(-m_mesh.faceNormal(triangle).y()) * (m_insideOut ? -1 : 1);
  const bool looksDown = (area > 0) != m_insideOut;
  addColumns(corners, looksDown, looksDown && down > m_limit);
}

void HitSearch::addColumns(const std::array<Corner, 3>& corners, bool entering, bool needsSupport) {
  const auto& [a, heightA] = corners[0];
  const auto& [b, heightB] = corners[1];
  const auto& [c, heightC] = corners[2];
  // The first column whose middle is not before a place on the raster.
  const auto columnFrom = [](std::int64_t place) {
    return (place + Columns::Steps / 2 - 1) / Columns::Steps;
  };
  const auto middle = [](std::int64_t column) { return column * Columns::Steps + Columns::Steps / 2; };
  const auto [minX, maxX] = std::minmax({a.x, b.x, c.x});
  const auto [minZ, maxZ] = std::minmax({a.z, b.z, c.z});
  const auto area = double(turn(a, b, c));
  for (std::int64_t z = columnFrom(minZ); middle(z) <= maxZ; ++z) {
    for (std::int64_t x = columnFrom(minX); middle(x) <= maxX; ++x) {
      const Columns::Point p{middle(x), middle(z)};
      const std::int64_t ab = turn(a, b, p);
      const std::int64_t bc = turn(b, c, p);
      const std::int64_t ca = turn(c, a, p);
      const bool inside = (ab > 0 || (ab == 0 && ownsEdge(a, b))) &&
                          (bc > 0 || (bc == 0 && ownsEdge(b, c))) && (ca > 0 || (ca == 0 && ownsEdge(c, a)));
      if (!inside)
        continue;
      const double height = (double(bc) * heightA + double(ca) * heightB + double(ab) * heightC) / area;
      m_hits.push_back({std::uint32_t(z * m_columns.countX() + x), float(height), entering, needsSupport});
    }
  }
}

// The lengths of all supports in the columns: from where the mesh is entered from outside down to where it
// was left, or to the plate.
double supportedLength(const std::vector<Hit>& hits) {
  double sum = 0;
  int depth = 0; // how many bodies one is in
  double ground = 0;
  for (std::size_t i = 0; i < hits.size(); ++i) {
    const Hit& hit = hits[i];
    if (i == 0 || hits[i - 1].column != hit.column) {
      depth = 0;
      ground = 0;
    }
    if (hit.entering && depth == 0 && hit.needsSupport)
      sum += std::max(0.0, double(hit.height) - ground);
    depth += hit.entering ? 1 : -1;
    if (depth == 0)
      ground = double(hit.height);
  }
  return sum;
}

} // namespace

std::optional<double> supportVolume(const Mesh& mesh, const SupportOptions& options,
                                    const Vela::UiBase::RunProgress& progress) {
  progress.report(0);
  const std::optional<double> volume = mesh.volume();
  if (!volume)
    return std::nullopt;
  HitSearch search(mesh, options, *volume < 0);
  const std::size_t count = mesh.triangles().size();
  for (std::size_t i = 0; i < count; ++i) {
    if (i % TrianglesPerReport == 0)
      progress.report(0.2 + 0.5 * double(i) / double(count));
    search.add(i);
  }
  const std::vector<Hit> hits = search.takeSorted();
  progress.report(0.9);
  const double support = supportedLength(hits) * search.columnArea();
  progress.report(1);
  return support;
}

} // namespace Workbench
