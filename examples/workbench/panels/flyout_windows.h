// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/core/cmd_mgr_protocol.h>

#include <QPointer>

#include <functional>

class QAction;
class QWidget;

namespace Workbench {

/// Gives each flyout command of a view a window for its flyout; see FlyoutWindow.
class FlyoutWindows : public Vela::UiBase::CmdMgrProtocol {
public:
  /// Tells what stands for a command now, or null.
  using Opener = std::function<QWidget*(QAction* command)>;

  FlyoutWindows(QWidget& layer, QWidget& corner, Opener opener);

  void commandAdded(Vela::UiBase::CmdMgr* manager, Vela::UiBase::CommandBase* command) override;

private:
  const QPointer<QWidget> m_layer;
  const QPointer<QWidget> m_corner;
  const Opener m_opener;
};

} // namespace Workbench
