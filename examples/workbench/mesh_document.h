// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/commands/text.h>
#include <workbench/mesh.h>
#include <workbench/mesh_ops/triangle_selection.h>

#include <QObject>
#include <QString>
#include <QUndoStack>

#include <optional>

namespace Workbench {

/// The mesh of a view, the file it came from, what of it is selected, and the steps that can be undone.
///
/// Selections are steps of their own, as a selection put together from many clicks is work too: undo brings
/// back the one before. Every edit clears the selection, whose triangles may be gone; undoing it brings back
/// mesh and selection together. Meshes share their data, so a step that only selects costs next to nothing.
/// For the main thread.
///
/// @code
/// MeshDocument document;
/// document.open(loadMesh(fileName), fileName);
/// document.setSelection(selectConnected(document.mesh(), hit->triangle));
/// document.edit({staticMetaObject, QT_TR_NOOP("Delete")}, withoutTriangles(document.mesh(),
/// document.selection())); document.undoStack()->undo();
/// @endcode
class MeshDocument : public QObject {
  Q_OBJECT

public:
  explicit MeshDocument(QObject* parent = nullptr);
  ~MeshDocument() override;

  const Mesh& mesh() const noexcept { return m_mesh; }
  /// Empty before the first open().
  const QString& fileName() const noexcept { return m_fileName; }
  /// Whether the mesh is another one than that of the file: undoing back to it makes it unmodified again.
  bool isModified() const noexcept { return !m_mesh.isCopyOf(m_saved); }
  /// Always of as many triangles as the mesh.
  const TriangleSelection& selection() const noexcept { return m_selection; }
  /// Owned by the document. Its undo and redo are the only ones; steps are made by edit() and setSelection().
  QUndoStack* undoStack() noexcept { return &m_undoStack; }

  /// What undo and redo would take back and do again; none where there is nothing.
  std::optional<Vela::UiBase::Text> undoText() const;
  std::optional<Vela::UiBase::Text> redoText() const;

  /// Shows a mesh from a file. Forgets the selection and all steps.
  void open(const Mesh& mesh, const QString& fileName);
  /// That file has @p mesh now, which is the document's or was when the writing began. Steps stay.
  void setSaved(const Mesh& mesh, const QString& fileName);
  /// Puts @p result in the place of the mesh, as a step.
  /// @param text  what was done, for a user, as in "Undo %1"
  void edit(const Vela::UiBase::Text& text, const Mesh& result);
  /// Selects, as a step; nothing happens when that is selected already.
  /// @param text  what was done, for a user; empty for a common text
  /// @throws std::invalid_argument when @p selection is not of as many triangles as the mesh.
  void setSelection(const TriangleSelection& selection, const Vela::UiBase::Text& text = QString());

Q_SIGNALS:
  /// A file was opened. Follows after the other two signals.
  void opened();
  /// There is another mesh, and the selection is already one of it.
  void meshChanged();
  void selectionChanged();
  /// fileName() or isModified() is another.
  void savedStateChanged();

private:
  class Step;

  std::optional<Vela::UiBase::Text> textOfStep(int index) const;
  void show(const Mesh& mesh, const TriangleSelection& selection);
  void select(const TriangleSelection& selection);

  Mesh m_mesh;
  Mesh m_saved; // what the file has
  QString m_fileName;
  TriangleSelection m_selection;
  QUndoStack m_undoStack;
};

} // namespace Workbench
