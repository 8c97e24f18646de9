// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/commands/command_base.h>

namespace Workbench {

class MeshViewController;

/// Switches the application between a light and a dark palette, and remembers the choice.
///
/// The palette belongs to the application: contexts of a view do not switch it.
class DarkPaletteCommand : public Vela::UiBase::CommandBase {
  Q_OBJECT
  COMMAND_ID(DarkPaletteCommand)

public:
  explicit DarkPaletteCommand(MeshViewController* controller);

  /// Takes the palette that was chosen last, or else suits the desktop, for the styles.
  static void restorePalette();

  void setCommandState(const Vela::UiBase::CommandState& state) override;
  bool onExecuteAsync(bool checked) override;
};

} // namespace Workbench
