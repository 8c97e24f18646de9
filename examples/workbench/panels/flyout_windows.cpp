// SPDX-License-Identifier: MIT
#include "flyout_windows.h"

#include <ui_base/commands/flyout_command.h>
#include <workbench/panels/flyout_window.h>

#include <QWidget>

namespace Workbench {

using namespace Vela::UiBase;

FlyoutWindows::FlyoutWindows(QWidget& layer, QWidget& corner, Opener opener)
    : m_layer(&layer), m_corner(&corner), m_opener(std::move(opener)) {}

void FlyoutWindows::commandAdded(CmdMgr*, CommandBase* command) {
  auto* const flyoutCommand = dynamic_cast<FlyoutCommand*>(command);
  if (!flyoutCommand || !flyoutCommand->flyout() || !m_layer || !m_corner)
    return;
  new FlyoutWindow(*flyoutCommand, *m_layer, *m_corner,
                   [opener = m_opener, flyoutCommand] { return opener(flyoutCommand); });
}

} // namespace Workbench
