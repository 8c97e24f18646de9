// SPDX-License-Identifier: MIT
#pragma once

#include <vlk_app_service/i_app_manager.h>

#include <QCoreApplication>

namespace Workbench {

/// Gives a mesh view its commands, in the order of the menus.
class WorkbenchAppManager : public Vela::Services::IAppManager {
  Q_DECLARE_TR_FUNCTIONS(Workbench::WorkbenchAppManager)

public:
  QList<Vela::UiBase::CommandBase*> commandsFor(Vela::UiBase::CmdsViewController* controller) override;
};

} // namespace Workbench
