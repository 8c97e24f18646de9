// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/commands/command_base.h>

namespace Workbench {

class MeshViewController;

/// What the user can see of the keyboard.
enum EKeyboardPage : int {
  EditShortcuts, ///< The shortcuts of all commands, to be changed.
  TryKeys,       ///< Who would get a key.
};

/// Opens a dialog about the keyboard.
class KeyboardCommand : public Vela::UiBase::CommandBase {
  Q_OBJECT

public:
  KeyboardCommand(MeshViewController* controller, EKeyboardPage page);

  static QString idOf(EKeyboardPage page);
  QString commandId() const override { return idOf(m_page); }
  bool onExecuteAsync(bool checked) override;

private:
  QWidget* makePage(QWidget& window) const;

  const EKeyboardPage m_page;
};

} // namespace Workbench
