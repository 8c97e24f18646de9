// SPDX-License-Identifier: MIT
#pragma once

#include <workbench/mesh_reader/mesh_stream.h>
#include <workbench/mesh_reader/vertex_welder.h>

#include <stdexcept>
#include <string>

namespace Workbench {

/// All triangles of a file in the coordinates of its scene, as one connected mesh.
struct ImportedMesh {
  std::vector<VertexWelder::Position> positions;
  std::vector<std::array<std::uint32_t, 3>> triangles;
};

/// Why a file gives no mesh.
class ImportError : public std::runtime_error {
public:
  ImportError(MeshReaderStatus status, const std::string& details)
      : std::runtime_error(details), m_status(status) {}
  MeshReaderStatus status() const noexcept { return m_status; }

private:
  MeshReaderStatus m_status;
};

/// Reads a mesh file, named in UTF-8. Polygons are triangulated, points and lines left out, the meshes of the
/// scene placed by their nodes and merged.
/// @throws ImportError, std::bad_alloc and std::length_error
ImportedMesh importMesh(const std::string& fileName);

} // namespace Workbench
