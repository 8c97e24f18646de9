// SPDX-License-Identifier: MIT
#include "smooth.h"

#include <oneapi/tbb/blocked_range.h>
#include <oneapi/tbb/parallel_for.h>

#include <span>
#include <stdexcept>

namespace Workbench {
namespace {

using Range = oneapi::tbb::blocked_range<std::size_t>;

// What a triangle holds besides one of its corners.
struct Wedge {
  std::uint32_t next;
  std::uint32_t previous;
  std::uint32_t triangle;
};

// The triangles around each vertex, in one block of memory.
class VertexWedges {
public:
  explicit VertexWedges(const Mesh& mesh)
      : m_begin(mesh.positions().size() + 1), m_wedges(mesh.triangles().size() * 3) {
    for (const Mesh::Triangle& t : mesh.triangles()) {
      for (const std::uint32_t corner : t)
        ++m_begin[corner];
    }
    for (std::size_t v = 1; v < m_begin.size(); ++v)
      m_begin[v] += m_begin[v - 1];
    // Filled from the end of each vertex's part, whose begin is right when all are in.
    for (std::size_t i = mesh.triangles().size(); i-- > 0;) {
      const Mesh::Triangle& t = mesh.triangles()[i];
      for (std::size_t corner = 0; corner < 3; ++corner)
        m_wedges[--m_begin[t[corner]]] = {t[(corner + 1) % 3], t[(corner + 2) % 3], std::uint32_t(i)};
    }
  }

  std::span<const Wedge> operator[](std::size_t vertex) const {
    return {m_wedges.data() + m_begin[vertex], m_begin[vertex + 1] - m_begin[vertex]};
  }

private:
  std::vector<std::size_t> m_begin;
  std::vector<Wedge> m_wedges;
};

// Whether the triangles around a vertex close: each neighbour is then the next corner of one and the previous
// corner of another.
class ClosedFanTest {
public:
  bool operator()(std::span<const Wedge> wedges) {
    m_next.clear();
    m_previous.clear();
    for (const Wedge& wedge : wedges) {
      m_next.push_back(wedge.next);
      m_previous.push_back(wedge.previous);
    }
    std::sort(m_next.begin(), m_next.end());
    std::sort(m_previous.begin(), m_previous.end());
    return !m_next.empty() && m_next == m_previous &&
           std::adjacent_find(m_next.begin(), m_next.end()) == m_next.end();
  }

private:
  std::vector<std::uint32_t> m_next;
  std::vector<std::uint32_t> m_previous;
};

// Not a vector of bool: its elements are written by several threads.
std::vector<char> movableVertices(const VertexWedges& wedges, std::size_t vertices,
                                  const TriangleSelection& selection) {
  std::vector<char> movable(vertices);
  oneapi::tbb::parallel_for(Range(0, vertices), [&](const Range& range) {
    ClosedFanTest isClosedFan;
    for (std::size_t v = range.begin(); v < range.end(); ++v) {
      const auto isSelected = [&selection](const Wedge& w) { return selection.contains(w.triangle); };
      movable[v] = isClosedFan(wedges[v]) &&
                   (selection.isEmpty() || std::all_of(wedges[v].begin(), wedges[v].end(), isSelected));
    }
  });
  return movable;
}

// Moves every movable vertex by a part of the way to the middle of its neighbours.
void step(const VertexWedges& wedges, const std::vector<char>& movable, float part,
          const std::vector<QVector3D>& from, std::vector<QVector3D>& to) {
  oneapi::tbb::parallel_for(Range(0, from.size()), [&](const Range& range) {
    for (std::size_t v = range.begin(); v < range.end(); ++v) {
      if (!movable[v])
        continue;
      QVector3D towards;
      for (const Wedge& wedge : wedges[v])
        towards += from[wedge.next] - from[v];
      to[v] = from[v] + towards * (part / float(wedges[v].size()));
    }
  });
}

} // namespace

Mesh smoothed(const Mesh& mesh, const SmoothOptions& options, const Vela::UiBase::RunProgress& progress) {
  if (!options.selection.isEmpty() && options.selection.size() != mesh.triangles().size())
    throw std::invalid_argument("A selection of another mesh");
  progress.report(0);
  const VertexWedges wedges(mesh);
  const std::vector<char> movable = movableVertices(wedges, mesh.positions().size(), options.selection);
  std::vector<QVector3D> positions = mesh.positions();
  std::vector<QVector3D> between = positions;
  for (int i = 0; i < options.iterations; ++i) {
    progress.report(double(i) / options.iterations);
    step(wedges, movable, float(options.inwards), positions, between);
    step(wedges, movable, float(-options.outwards), between, positions);
  }
  Mesh result(std::move(positions), mesh.triangles());
  progress.report(1);
  return result;
}

} // namespace Workbench
