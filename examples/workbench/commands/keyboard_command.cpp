// SPDX-License-Identifier: MIT
#include "keyboard_command.h"

#include <ui_base/assistants/key_probe.h>
#include <ui_base/assistants/shortcut_editor.h>
#include <ui_base/assistants/shortcut_scheme.h>
#include <ui_base/popups/m_dialog_base.h>
#include <ui_base/views/base_view.h>
#include <workbench/command_menus.h>
#include <workbench/commands/mesh_user.h>
#include <workbench/mesh_view_controller.h>
#include <workbench/photos/photo_action.h>
#include <workbench/photos/photo_command.h>

namespace Workbench {

using namespace Vela::UiBase;

namespace {

/// Keys of the mesh do not meet those of the photographs.
void declareModes(ShortcutScheme& shortcuts) {
  QStringList ofMesh;
  QStringList ofPhotos;
  const auto commands = shortcuts.commands();
  for (const CommandBase* const command : commands) {
    const auto* const user = dynamic_cast<const MeshUser*>(command);
    if (user && user->needsMeshPage())
      ofMesh.append(command->commandId());
  }
  for (const EPhotoAction action : PhotoActions)
    ofPhotos.append(PhotoCommand::idOf(action));
  shortcuts.rules().addMode(QStringLiteral("mesh"), ofMesh);
  shortcuts.rules().addMode(QStringLiteral("photographs"), ofPhotos);
}

} // namespace

KeyboardCommand::KeyboardCommand(MeshViewController* controller, EKeyboardPage page)
    : CommandBase(controller), m_page(page) {
  setBaseGroupName(HelpSection);
  if (page == EditShortcuts) {
    setText({staticMetaObject, QT_TR_NOOP("&Keyboard Shortcuts…")});
    setShortcut(Qt::CTRL | Qt::ALT | Qt::Key_K);
    setStatusTip(
        {staticMetaObject, QT_TR_NOOP("Shows the keys of all commands, to change, print, or hand on")});
  } else {
    setText({staticMetaObject, QT_TR_NOOP("&Press Any Key…")});
    setStatusTip({staticMetaObject,
                  QT_TR_NOOP("Shows what a key does here, and why others that want it do not get it")});
  }
}

QString KeyboardCommand::idOf(EKeyboardPage page) {
  return QString::fromLatin1(staticMetaObject.className()) + QString::number(page);
}

QWidget* KeyboardCommand::makePage(QWidget& window) const {
  if (m_page == TryKeys)
    return new KeyProbe(window);
  auto* const shortcuts = window.findChild<ShortcutScheme*>();
  if (!shortcuts)
    return nullptr;
  declareModes(*shortcuts);
  return new ShortcutEditor(*shortcuts);
}

bool KeyboardCommand::onExecuteAsync(bool) {
  const BaseView* const view = getView();
  QWidget* const page = view ? makePage(*view->window()) : nullptr;
  if (!page)
    return false;
  auto* const dialog = new MDialogBase(view->window());
  dialog->setAttribute(Qt::WA_DeleteOnClose);
  dialog->SetTitle(m_page == EditShortcuts ? tr("Keyboard Shortcuts") : tr("Press Any Key"));
  dialog->SetContent(page);
  dialog->SetDefaultButton(dialog->AddButton(tr("Close"), QDialogButtonBox::RejectRole));
  dialog->open();
  page->setFocus();
  return true;
}

} // namespace Workbench
