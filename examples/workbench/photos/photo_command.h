// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/commands/command_base.h>
#include <workbench/photos/photo_action.h>

namespace Workbench {

class PhotoViewController;

/// One of the things that can be done with the photographs, as a command for menus. The keys are those of the
/// photograph view, which acts on them itself.
class PhotoCommand : public Vela::UiBase::CommandBase {
  Q_OBJECT

public:
  PhotoCommand(PhotoViewController* controller, EPhotoAction action);

  static QString idOf(EPhotoAction action);
  QString commandId() const override { return idOf(m_action); }
  EPhotoAction action() const noexcept { return m_action; }
  bool onExecuteAsync(bool checked) override;

private:
  const EPhotoAction m_action;
};

} // namespace Workbench
