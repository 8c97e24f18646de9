// SPDX-License-Identifier: MIT
#include "selection_command.h"

#include <ui_base/views/qt_ui_toolkit.h>
#include <workbench/command_menus.h>
#include <workbench/mesh_document.h>
#include <workbench/mesh_ops/selection.h>
#include <workbench/mesh_view_controller.h>

namespace Workbench {

using namespace Vela::UiBase;

namespace {

TriangleSelection inverted(TriangleSelection selection) {
  selection.invert();
  return selection;
}

TriangleSelection connected(const Mesh& mesh, const TriangleSelection& selection) {
  TriangleSelection result(selection.size());
  for (const std::uint32_t triangle : selection.triangles()) {
    if (!result.contains(triangle))
      result |= selectConnected(mesh, triangle);
  }
  return result;
}

TriangleSelection selectionAfter(ESelectionChange change, const Mesh& mesh,
                                 const TriangleSelection& selection) {
  switch (change) {
  case SelectAll:
    return TriangleSelection::all(selection.size());
  case InvertSelection:
    return inverted(selection);
  case GrowSelection:
    return grown(mesh, selection);
  case SelectConnected:
    return connected(mesh, selection);
  default:
    return TriangleSelection(selection.size());
  }
}

} // namespace

SelectionCommand::SelectionCommand(MeshViewController* controller, ESelectionChange change)
    : WorkbenchCommand(controller), m_change(change) {
  const auto describe = [this](const char* text, const char* icon, const QKeySequence& key, const char* tip) {
    setText({staticMetaObject, text});
    setIcon(QtUiToolkit::Instance().CreateIcon(QString::fromLatin1(icon)));
    setShortcut(key);
    setStatusTip({staticMetaObject, tip});
  };
  setBaseGroupName(SelectSection);
  switch (change) {
  case SelectAll:
    describe(QT_TR_NOOP("Select &All"), "select_all", QKeySequence::SelectAll,
             QT_TR_NOOP("Select all of the mesh"));
    break;
  case InvertSelection:
    describe(QT_TR_NOOP("&Invert Selection"), "invert_selection", Qt::CTRL | Qt::Key_I,
             QT_TR_NOOP("Select what is not selected, and nothing else"));
    break;
  case ClearSelection:
    describe(QT_TR_NOOP("Select &None"), "select_none", Qt::CTRL | Qt::SHIFT | Qt::Key_A,
             QT_TR_NOOP("Select nothing"));
    break;
  case GrowSelection:
    describe(QT_TR_NOOP("&Grow Selection"), "grow_selection", Qt::CTRL | Qt::Key_G,
             QT_TR_NOOP("Add the triangles around what is selected"));
    break;
  case SelectConnected:
    describe(QT_TR_NOOP("Select &Connected"), "select_connected", Qt::CTRL | Qt::Key_L,
             QT_TR_NOOP("Add everything that hangs together with what is selected"));
    break;
  case DeleteSelection:
    describe(QT_TR_NOOP("&Delete Selection"), "delete", QKeySequence::Delete,
             QT_TR_NOOP("Delete the selected triangles"));
    break;
  }
}

QString SelectionCommand::idOf(ESelectionChange change) {
  return QString::fromLatin1(staticMetaObject.className()) + QString::number(change);
}

QString SelectionCommand::obstacle() const {
  if (!hasMesh())
    return needMesh();
  const MeshViewController* const controller = meshController();
  if (!controller || controller->mode() == MeasureMode)
    return tr("Nothing is selected while distances are measured.");
  if (m_change == SelectAll || m_change == InvertSelection)
    return {};
  if (document()->selection().isEmpty())
    return tr("Nothing is selected.");
  return m_change == DeleteSelection ? needUnlocked() : QString();
}

bool SelectionCommand::onExecuteAsync(bool) {
  MeshDocument* const edited = document();
  if (!edited || !isAvailable())
    return false;
  const Text text = translatableText().inSentence();
  if (m_change == DeleteSelection)
    edited->edit(text, withoutTriangles(edited->mesh(), edited->selection()));
  else
    edited->setSelection(selectionAfter(m_change, edited->mesh(), edited->selection()), text);
  return true;
}

} // namespace Workbench
