// SPDX-License-Identifier: MIT
#include "unsaved_changes.h"

#include <ui_base/popups/dialog_ex.h>
#include <workbench/commands/save_mesh_command.h>
#include <workbench/mesh_view.h>
#include <workbench/mesh_view_controller.h>
#include <workbench/pages/workbench_pages.h>

#include <QFileInfo>

namespace Workbench {

using namespace Vela::UiBase;

namespace {

const QString& saveAnswer() {
  static const QString name = QStringLiteral("save");
  return name;
}

const QString& discardAnswer() {
  static const QString name = QStringLiteral("discard");
  return name;
}

} // namespace

UnsavedChanges::UnsavedChanges(MeshViewController& controller) : m_controller(controller) {
  connect(&controller.events(), &MeshViewEvents::savingFinished, this, &UnsavedChanges::onSavingFinished);
}

bool UnsavedChanges::mayLeave(ELeaving leaving, const std::function<void()>& then) {
  if (m_agreed || isSafe())
    return true;
  m_leaving = leaving;
  m_then = then;
  if (!m_controller.isSaving())
    ask();
  return false;
}

bool UnsavedChanges::isSafe() const {
  const MeshView* const view = m_controller.meshView();
  const bool modified = view && view->document().isModified();
  return !modified && !m_controller.isMeshEdited() && !m_controller.isSaving();
}

void UnsavedChanges::ask() {
  MeshView* const view = m_controller.meshView();
  if (!view)
    return;
  if (m_dialog) { // asked for something else
    m_dialog->disconnect(this);
    m_dialog->close();
  }
  Q_EMIT m_controller.events().pageAsked(MeshPage);
  const bool quits = m_leaving == LeaveToQuit;
  const bool modified = view->document().isModified();
  const QString file = QFileInfo(view->document().fileName()).fileName();
  auto* const dialog = new DialogEx(DialogWarning, quits ? tr("Quit") : tr("Open"),
                                    modified ? tr("“%1” has changes that are not saved.").arg(file)
                                             : tr("“%1” is being worked on.").arg(file),
                                    view->window());
  m_dialog = dialog;
  dialog->setAttribute(Qt::WA_DeleteOnClose);
  if (m_controller.isMeshEdited())
    dialog->SetInformativeText(tr("The work on the mesh is not finished. What it has done so far is lost."));
  else
    dialog->SetInformativeText(quits ? tr("Without saving they are lost when the program ends.")
                                     : tr("Without saving they are lost when another mesh is opened."));
  if (modified)
    dialog->AddNamedButton({saveAnswer(), tr("&Save")});
  const QString goOn = modified ? tr("&Discard") : quits ? tr("&Stop and Quit") : tr("&Stop and Open");
  dialog->AddNamedButton({discardAnswer(), goOn, QDialogButtonBox::DestructiveRole});
  dialog->AddNamedButton({QStringLiteral("cancel"), tr("&Cancel"), QDialogButtonBox::RejectRole});
  connect(dialog, &QDialog::finished, this, [this, dialog] { answered(dialog->Answer()); });
  dialog->open();
}

void UnsavedChanges::answered(const QString& answer) {
  m_dialog = nullptr;
  if (answer == discardAnswer()) {
    m_controller.cancelWork();
    leave();
    return;
  }
  auto* const command = m_controller.findCommand<SaveMeshCommand>(SaveMeshCommand::idOf(SaveMesh));
  if (answer == saveAnswer() && command)
    command->save();
  else
    m_then = nullptr;
}

// Work may have changed the mesh meanwhile.
void UnsavedChanges::onSavingFinished(bool saved) {
  if (!m_then || m_dialog)
    return;
  if (!saved)
    m_then = nullptr;
  else if (isSafe())
    leave();
  else
    ask();
}

void UnsavedChanges::leave() {
  const QPointer<UnsavedChanges> self(this);
  const auto then = std::exchange(m_then, nullptr);
  m_agreed = true;
  if (then)
    then();
  if (self)
    m_agreed = false;
}

} // namespace Workbench
