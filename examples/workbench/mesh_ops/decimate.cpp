// SPDX-License-Identifier: MIT
#include "decimate.h"

#include <workbench/mesh_ops/collapsible_mesh.h>
#include <workbench/mesh_ops/quadric.h>

#include <queue>

#include <tuple>

namespace Workbench {
namespace {

// An open border weighs this much more than the surface.
constexpr double BorderWeight = 100;
// A slight pull of vertices to their own places: where the surface is flat the planes leave the place open.
constexpr double PullWeight = 1e-5;
constexpr std::size_t StepsBetweenReports = 256;

// An edge waiting for its turn. It is out of date when one of its ends has moved since.
struct Candidate {
  double error;
  std::uint32_t a;
  std::uint32_t b;
  std::uint32_t versions; // the sum of those of the ends, which only ever rise

  bool operator<(const Candidate& other) const { // the least error comes first
    return std::tie(error, a, b) > std::tie(other.error, other.a, other.b);
  }
};

class Decimation {
public:
  Decimation(const Mesh& mesh, std::size_t target, const Vela::UiBase::RunProgress& progress)
      : m_mesh(mesh),
        m_first(m_mesh.triangleCount()),
        m_target(target),
        m_progress(progress),
        m_quadrics(m_mesh.vertexCount()),
        m_versions(m_mesh.vertexCount()) {
    m_progress.report(0);
    addFaceQuadrics();
    addBorderQuadrics();
  }

  Mesh run() {
    // What was refused may be possible after changes all around: another round, as long as one helps.
    for (std::size_t before = m_first + 1; before > m_mesh.triangleCount() && !isDone();) {
      before = m_mesh.triangleCount();
      queueAllEdges();
      while (!isDone() && !m_queue.empty())
        takeNext();
    }
    m_progress.report(1);
    return m_mesh.result();
  }

private:
  struct Contraction {
    Vector3 place;
    double error;
  };

  bool isDone() const { return m_mesh.triangleCount() <= m_target; }

  void addFaceQuadrics() {
    for (std::uint32_t v = 0; v < m_mesh.vertexCount(); ++v) {
      for (const std::uint32_t triangle : m_mesh.trianglesAt(v)) {
        const Vector3 face = m_mesh.areaVector(triangle);
        const double area = length(face);
        if (!(area > 0))
          continue;
        m_quadrics[v] += Quadric::ofPlane(face * (1 / area), m_mesh.position(v), area);
        m_quadrics[v] += Quadric::ofPoint(m_mesh.position(v), area * PullWeight);
      }
    }
  }

  // Planes through the border's edges, upright on their faces.
  void addBorderQuadrics() {
    for (const auto& [a, b] : m_mesh.borderEdges()) {
      const auto& around = m_mesh.trianglesAt(a);
      const std::uint32_t end = b;
      const auto triangle = std::find_if(around.begin(), around.end(), [&](std::uint32_t t) {
        const Mesh::Triangle& corners = m_mesh.triangle(t);
        return std::find(corners.begin(), corners.end(), end) != corners.end();
      });
      const Vector3 edge = m_mesh.position(b) - m_mesh.position(a);
      const Vector3 upright = cross(edge, m_mesh.areaVector(*triangle));
      const double size = length(upright);
      if (!(size > 0))
        continue;
      const Quadric quadric =
          Quadric::ofPlane(upright * (1 / size), m_mesh.position(a), dot(edge, edge) * BorderWeight);
      m_quadrics[a] += quadric;
      m_quadrics[b] += quadric;
    }
  }

  void queueAllEdges() {
    std::vector<Candidate> candidates;
    for (const auto& [a, b] : m_mesh.edges()) {
      const double error = contraction(a, b).error;
      if (std::isfinite(error))
        candidates.push_back({error, a, b, m_versions[a] + m_versions[b]});
    }
    m_queue = std::priority_queue<Candidate>({}, std::move(candidates));
  }

  Contraction contraction(std::uint32_t a, std::uint32_t b) const {
    const Quadric sum = m_quadrics[a] + m_quadrics[b];
    const Vector3& atA = m_mesh.position(a);
    const Vector3& atB = m_mesh.position(b);
    const Vector3 middle = (atA + atB) * 0.5;
    // Far from the edge the planes say little about the surface.
    const auto best = sum.minimum(middle);
    if (best && length(*best - middle) <= length(atB - atA))
      return {*best, sum.at(*best)};
    Contraction result{middle, sum.at(middle)};
    for (const Vector3& place : {atA, atB}) {
      const double error = sum.at(place);
      if (error < result.error)
        result = {place, error};
    }
    return result;
  }

  void takeNext() {
    const Candidate next = m_queue.top();
    m_queue.pop();
    if (++m_steps % StepsBetweenReports == 0)
      m_progress.report(double(m_first - m_mesh.triangleCount()) / double(m_first - m_target));
    if (next.versions != m_versions[next.a] + m_versions[next.b])
      return;
    const Vector3 place = contraction(next.a, next.b).place;
    if (!m_mesh.canCollapse(next.b, next.a, place))
      return;
    m_mesh.collapse(next.b, next.a, place);
    m_quadrics[next.a] += m_quadrics[next.b];
    ++m_versions[next.a];
    ++m_versions[next.b];
    queueEdgesOf(next.a);
  }

  void queueEdgesOf(std::uint32_t vertex) {
    m_mesh.neighbors(vertex, m_neighbors);
    for (const std::uint32_t other : m_neighbors) {
      const std::uint32_t a = std::min(vertex, other);
      const std::uint32_t b = std::max(vertex, other);
      const double error = contraction(a, b).error;
      if (std::isfinite(error))
        m_queue.push({error, a, b, m_versions[a] + m_versions[b]});
    }
  }

  CollapsibleMesh m_mesh;
  std::size_t m_first;
  std::size_t m_target;
  const Vela::UiBase::RunProgress& m_progress;
  std::vector<Quadric> m_quadrics;
  std::vector<std::uint32_t> m_versions;
  std::priority_queue<Candidate> m_queue;
  std::vector<std::uint32_t> m_neighbors;
  std::size_t m_steps = 0;
};

} // namespace

Mesh decimated(const Mesh& mesh, std::size_t triangles, const Vela::UiBase::RunProgress& progress) {
  if (mesh.triangles().size() <= triangles)
    return mesh;
  return Decimation(mesh, triangles, progress).run();
}

} // namespace Workbench
