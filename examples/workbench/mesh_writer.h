// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/commands/run_progress.h>
#include <workbench/mesh.h>

#include <QString>

#include <stdexcept>

namespace Workbench {

/// Why a mesh was not saved, in words for the user.
class MeshSaveError : public std::runtime_error {
public:
  MeshSaveError(const QString& fileName, const QString& reason);

  const QString& reason() const noexcept { return m_reason; }
  /// One sentence that names the file and the reason.
  QString message() const;

private:
  QString m_fileName;
  QString m_reason;
};

/// Saves the triangles of a mesh as OBJ, PLY or STL, by the ending of the file's name. Coordinates keep every
/// bit. STL does not know which corners are one vertex; loadMesh() joins those at the same place.
///
/// The file is written beside the one of that name and takes its place when it is complete. So when something
/// goes wrong, the file that was there before is there still. Blocks; for any thread.
///
/// @code
/// try {
///   saveMesh(document.mesh(), fileName);
/// } catch (const MeshSaveError& error) {
///   tell(error.message());
/// }
/// @endcode
/// @throws MeshSaveError
/// @throws Vela::UiBase::RunCancelled when the progress is asked to stop; nothing was saved.
void saveMesh(const Mesh& mesh, const QString& fileName, const Vela::UiBase::RunProgress& progress = {});

/// Whether saveMesh() knows the format by the file's name.
bool canSaveMesh(const QString& fileName);
/// The formats for a file dialog.
QStringList savedMeshFilters();

} // namespace Workbench
