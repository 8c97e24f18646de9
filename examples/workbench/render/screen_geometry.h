// SPDX-License-Identifier: MIT
#pragma once

#include <workbench/mesh.h>
#include <workbench/render/projection.h>

#include <QSize>

#include <array>
#include <cstdint>
#include <vector>

namespace Workbench {

/// A vertex in the frame: its position in 1/256 of a sample and the reciprocal of its depth, which is linear
/// over the frame and greater the nearer the vertex is.
struct ScreenVertex {
  std::int32_t x = 0;
  std::int32_t y = 0;
  float inverseDepth = 0;
  std::uint32_t outside = 0; ///< The planes beyond which the vertex lies.
};

/// A triangle or a clipped part of one, ready to be filled.
struct ScreenTriangle {
  std::array<ScreenVertex, 3> corners;
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

  void build(const Mesh& mesh, const Projection& projection, const QSize& samples);

  int tileColumns() const noexcept { return m_columns; }
  int tileRows() const noexcept { return m_rows; }

  /// Calls @p visit with every ScreenTriangle that may touch a tile, in the order of the mesh's triangles.
  template <typename Visitor>
  void visitTile(const Mesh& mesh, int column, int row, Visitor&& visit) const {
    const std::size_t tile = std::size_t(row) * std::size_t(m_columns) + std::size_t(column);
    for (const Chunk& chunk : m_chunks) {
      for (const std::uint32_t entry : chunk.tiles[tile]) {
        if ((entry & ClippedEntry) != 0)
          visit(chunk.clipped[entry & ~ClippedEntry]);
        else
          visit(triangleOf(mesh, entry));
      }
    }
  }

private:
  static constexpr std::size_t ChunkCount = 32;
  static constexpr std::uint32_t ClippedEntry = 0x80000000U;

  // The triangles are split into a fixed number of runs, each sorted into tiles on its own.
  struct Chunk {
    std::vector<std::vector<std::uint32_t>> tiles;
    std::vector<ScreenTriangle> clipped;
  };

  ScreenTriangle triangleOf(const Mesh& mesh, std::uint32_t id) const {
    const Mesh::Triangle& t = mesh.triangles()[id];
    return {{m_vertices[t[0]], m_vertices[t[1]], m_vertices[t[2]]}, id};
  }
  void transformVertices(const Mesh& mesh, const Projection& projection);
  void sortChunk(Chunk& chunk, const Mesh& mesh, const Projection& projection, std::uint32_t begin,
                 std::uint32_t end) const;
  void addClipped(Chunk& chunk, const Mesh& mesh, const Projection& projection, std::uint32_t id) const;
  void addToTiles(Chunk& chunk, const ScreenTriangle& triangle, std::uint32_t entry) const;

  QSize m_samples;
  int m_columns = 0;
  int m_rows = 0;
  std::vector<ScreenVertex> m_vertices;
  std::vector<Chunk> m_chunks;
};

} // namespace Workbench
