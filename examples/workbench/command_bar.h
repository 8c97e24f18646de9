// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/core/cmd_mgr_protocol.h>

#include <QHash>
#include <QPointer>

class QAction;
class QToolBar;
class QWidget;

namespace Workbench {

/// Fills a tool bar with those commands of a view that have an icon, as they come and go, in the sections
/// that they name as base group. Each button has a rich tooltip and can be reached with Tab.
class CommandBar : public Vela::UiBase::CmdMgrProtocol {
public:
  /// @param bar  empty; owns what is put into it
  explicit CommandBar(QToolBar& bar);

  void commandAdded(Vela::UiBase::CmdMgr* manager, Vela::UiBase::CommandBase* command) override;
  void commandRemoved(Vela::UiBase::CmdMgr* manager, QString id) override;

private:
  void insert(QAction* end, Vela::UiBase::CommandBase& command, const QString& id);

  const QPointer<QToolBar> m_bar;
  QHash<QString, QPointer<QAction>> m_ends;         // by section: the separator before which its commands go
  QMultiHash<QString, QPointer<QAction>> m_actions; // by the identifier of the command that was added
};

} // namespace Workbench
