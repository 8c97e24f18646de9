// SPDX-License-Identifier: MIT
#pragma once

#include <workbench/mesh.h>

#include <QString>

#include <stdexcept>
#include <stop_token>

namespace Workbench {

/// Why a mesh file was not loaded, in words for the user.
class MeshLoadError : public std::runtime_error {
public:
  MeshLoadError(const QString& fileName, const QString& reason, QString details = {});

  const QString& fileName() const noexcept { return m_fileName; } ///< As it was given.
  const QString& reason() const noexcept { return m_reason; }
  /// What the importer of the format says, in its own words; often empty.
  const QString& details() const noexcept { return m_details; }
  /// One sentence that names the file and the reason.
  QString message() const;

private:
  QString m_fileName;
  QString m_reason;
  QString m_details;
};

/// Loads a mesh file: OBJ, PLY, STL, OFF, glTF or GLB, all meshes of the scene merged.
///
/// The file is read by a program of its own, workbench_mesh_reader, which lies beside the application; a file
/// that brings its format's importer down only ends that program. Blocks; for any thread.
///
/// @code
/// try {
///   show(loadMesh(fileName));
/// } catch (const MeshLoadError& error) {
///   tell(error.message());
/// }
/// @endcode
/// @param stop  ends the reading early, which also throws
/// @throws MeshLoadError
Mesh loadMesh(const QString& fileName, const std::stop_token& stop = {});

/// Whether the file's name ends like that of a mesh file.
bool isMeshFileName(const QString& fileName);
/// The patterns of such names for a file dialog, "*.obj *.ply".
QString meshNamePatterns();

} // namespace Workbench
