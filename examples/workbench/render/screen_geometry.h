// SPDX-License-Identifier: MIT
#pragma once

#include <workbench/mesh.h>
#include <workbench/render/projection.h>

#include <QRect>
#include <QSize>

#include <array>
#include <cstdint>
#include <vector>

namespace Workbench {

/// A point of the frame: its position in 1/256 of a sample and the reciprocal of its depth, which is linear
/// over the frame and greater the nearer the point is.
struct ScreenPoint {
  std::int32_t x = 0;
  std::int32_t y = 0;
  float inverseDepth = 0;
};

/// A triangle or a clipped part of one, ready to be filled.
struct ScreenTriangle {
  std::array<ScreenPoint, 3> corners;
  std::uint32_t id = 0; ///< Index of the triangle in the mesh.
};

/// The geometry of one frame: vertices transformed, triangles clipped and sorted into square tiles.
///
/// Works in parallel; what a tile holds, and in which order, depends on the mesh and the camera alone.
class ScreenGeometry {
public:
  static constexpr int SubSampleBits = 8;
  static constexpr int SubSamples = 1 << SubSampleBits;
  static constexpr int TileSize = 64; ///< Samples along an edge of a tile.

  /// @param tiles  the columns and rows that are of interest: the others stay empty. All when it is null.
  void build(const Mesh& mesh, const Projection& projection, const QSize& samples, const QRect& tiles = {});

  /// The columns and rows that are sorted into.
  const QRect& tiles() const noexcept { return m_tiles; }

  /// Calls @p visit with every ScreenTriangle that may touch one of the tiles(), in the order of the mesh's
  /// triangles.
  template <typename Visitor>
  void visitTile(int column, int row, Visitor&& visit) const {
    const std::size_t tile = indexOf(column, row);
    for (const Chunk& chunk : m_chunks) {
      for (const ScreenTriangle& triangle : chunk[tile])
        visit(triangle);
    }
  }

private:
  static constexpr std::size_t ChunkCount = 32;

  struct Vertex {
    ScreenPoint point;
    std::uint32_t outside = 0; // the planes beyond which the vertex lies
  };
  // The triangles are split into a fixed number of runs, each sorted into tiles on its own. A tile holds the
  // triangles themselves, so filling it reads memory in order; their storage is kept from frame to frame.
  using Chunk = std::vector<std::vector<ScreenTriangle>>;

  std::size_t indexOf(int column, int row) const {
    return std::size_t(row - m_tiles.top()) * std::size_t(m_tiles.width()) +
           std::size_t(column - m_tiles.left());
  }
  void transformVertices(const Mesh& mesh, const Projection& projection);
  void sortChunk(Chunk& chunk, const Mesh& mesh, const Projection& projection, std::uint32_t begin,
                 std::uint32_t end) const;
  void addClipped(Chunk& chunk, const Mesh& mesh, const Projection& projection, std::uint32_t id) const;
  void addToTiles(Chunk& chunk, const ScreenTriangle& triangle) const;

  QRect m_tiles;
  QRect m_samples; // that they cover
  std::vector<Vertex> m_vertices;
  std::vector<Chunk> m_chunks;
};

} // namespace Workbench
