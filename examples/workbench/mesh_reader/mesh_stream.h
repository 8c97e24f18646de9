// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>

namespace Workbench {

/// What the mesh reader writes to its standard output, in the byte order of the machine: this header, then
/// three floats a vertex, then three 32-bit indices a triangle.
struct MeshStreamHeader {
  static constexpr std::array<char, 8> Magic{'w', 'b', 'm', 'e', 's', 'h', '0', '1'};

  std::array<char, 8> magic = Magic;
  std::uint64_t vertexCount = 0;
  std::uint64_t triangleCount = 0;
};

/// Exit statuses of the mesh reader. Details, where there are any, are on its standard error.
enum MeshReaderStatus : int {
  MeshRead = 0,
  MeshUnreadable = 10, ///< The file does not follow its format; with details.
  MeshWithoutTriangles = 11,
  MeshNotFinite = 12, ///< A corner of a triangle has a coordinate that is not a finite number.
  MeshTooLarge = 13,  ///< Not enough memory, or more than 32-bit indices can count.
};

} // namespace Workbench
