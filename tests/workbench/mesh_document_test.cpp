// SPDX-License-Identifier: MIT
#include "test_meshes.h"

#include <support/test_case.h>
#include <workbench/mesh_document.h>
#include <workbench/mesh_ops/selection.h>

using namespace Workbench;

class MeshDocumentTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void undoAndRedoRestoreMeshAndSelection() {
    MeshDocument document;
    document.open(Test::cube(1), "cube.off");
    // Who hears of the mesh finds a selection that fits it.
    connect(&document, &MeshDocument::meshChanged, this,
            [&document] { QCOMPARE(document.selection().size(), document.mesh().triangles().size()); });

    const std::uint32_t corners[] = {0, 5};
    const TriangleSelection selection(12, corners);
    document.setSelection(selection);
    document.setSelection(selection); // no step
    document.edit(QStringLiteral("Delete"), withoutTriangles(document.mesh(), selection));
    QUndoStack& steps = *document.undoStack();
    QCOMPARE(steps.count(), 2);
    steps.undo();
    QCOMPARE(document.mesh().triangles(), Test::cube(1).triangles());
    QCOMPARE(document.selection(), selection);
    steps.undo();
    QVERIFY(document.selection().isEmpty());
    steps.setIndex(2);
    QCOMPARE(document.mesh().triangles().size(), std::size_t(10));
    QVERIFY(document.selection().isEmpty());
    QVERIFY_THROWS_EXCEPTION(std::invalid_argument, document.setSelection(selection));
    document.open(Test::cube(2), "other.off");
    QVERIFY(!steps.canUndo());
  }
};

VELA_TEST_MAIN(MeshDocumentTest)
#include "mesh_document_test.moc"
