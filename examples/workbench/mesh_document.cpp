// SPDX-License-Identifier: MIT
#include "mesh_document.h"

#include <QUndoCommand>

#include <optional>
#include <stdexcept>

namespace Workbench {

using Vela::UiBase::Text;

namespace {

constexpr int MostSteps = 100;

struct Content {
  std::optional<Mesh> mesh; // only of steps that change it
  TriangleSelection selection;
};

} // namespace

class MeshDocument::Step : public QUndoCommand {
public:
  Step(const Text& text, MeshDocument& document, Content before, Content after)
      : QUndoCommand(text.source()),
        m_text(text),
        m_document(document),
        m_before(std::move(before)),
        m_after(std::move(after)) {}

  void undo() override { apply(m_before); }
  void redo() override { apply(m_after); }
  const Text& translatable() const noexcept { return m_text; }

private:
  void apply(const Content& content) {
    if (content.mesh)
      m_document.show(*content.mesh, content.selection);
    else
      m_document.select(content.selection);
  }

  const Text m_text;
  MeshDocument& m_document;
  Content m_before;
  Content m_after;
};

MeshDocument::MeshDocument(QObject* parent) : QObject(parent) { m_undoStack.setUndoLimit(MostSteps); }

MeshDocument::~MeshDocument() = default;

void MeshDocument::open(const Mesh& mesh, const QString& fileName) {
  m_undoStack.clear();
  m_fileName = fileName;
  m_saved = mesh;
  show(mesh, TriangleSelection(mesh.triangles().size()));
  Q_EMIT savedStateChanged();
  Q_EMIT opened();
}

void MeshDocument::setSaved(const Mesh& mesh, const QString& fileName) {
  m_saved = mesh;
  m_fileName = fileName;
  Q_EMIT savedStateChanged();
}

std::optional<Text> MeshDocument::textOfStep(int index) const {
  const auto* const step = dynamic_cast<const Step*>(m_undoStack.command(index));
  return step ? std::optional(step->translatable()) : std::nullopt;
}

std::optional<Text> MeshDocument::undoText() const { return textOfStep(m_undoStack.index() - 1); }

std::optional<Text> MeshDocument::redoText() const { return textOfStep(m_undoStack.index()); }

void MeshDocument::edit(const Text& text, const Mesh& result) {
  m_undoStack.push(
      new Step(text, *this, {m_mesh, m_selection}, {result, TriangleSelection(result.triangles().size())}));
}

void MeshDocument::setSelection(const TriangleSelection& selection, const Text& text) {
  if (selection.size() != m_mesh.triangles().size())
    throw std::invalid_argument("A selection of another mesh");
  if (selection != m_selection)
    m_undoStack.push(new Step(text.isEmpty() ? Text(staticMetaObject, QT_TR_NOOP("Select")) : text, *this,
                              {std::nullopt, m_selection}, {std::nullopt, selection}));
}

void MeshDocument::show(const Mesh& mesh, const TriangleSelection& selection) {
  const bool selects = selection != m_selection;
  const bool wasModified = isModified();
  m_mesh = mesh;
  m_selection = selection;
  Q_EMIT meshChanged();
  if (selects)
    Q_EMIT selectionChanged();
  if (isModified() != wasModified)
    Q_EMIT savedStateChanged();
}

void MeshDocument::select(const TriangleSelection& selection) {
  m_selection = selection;
  Q_EMIT selectionChanged();
}

} // namespace Workbench
