// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/core/cmd_mgr_protocol.h>

#include <QHash>
#include <QLatin1String>
#include <QPointer>

class QAction;
class QMenu;
class QMenuBar;

namespace Workbench {

/// The sections of the menu bar. A command names its own as base group name.
inline constexpr QLatin1String FileSection("file");
inline constexpr QLatin1String ExitSection("file.exit");
inline constexpr QLatin1String ViewSection("view");
inline constexpr QLatin1String LookSection("view.look");
inline constexpr QLatin1String HelpSection("help");

/// Fills a menu bar with the commands of a view as they come and go. The delegate of the view's command
/// manager.
///
/// @code
/// auto menus = std::make_shared<CommandMenus>(*window.menuBar());
/// controller->setDelegate(menus, false);
/// @endcode
class CommandMenus : public Vela::UiBase::CmdMgrProtocol {
public:
  /// Adds its menus, empty, to the bar.
  explicit CommandMenus(QMenuBar& bar);

  void commandAdded(Vela::UiBase::CmdMgr* manager, Vela::UiBase::CommandBase* command) override;
  void commandRemoved(Vela::UiBase::CmdMgr* manager, QString id) override;

private:
  // Commands are put before the action that ends their section.
  struct Section {
    QPointer<QMenu> menu;
    QPointer<QAction> end;
  };

  void addSection(QMenu* menu, const QString& name, bool last);

  QHash<QString, Section> m_sections;
  QHash<QString, QPointer<QAction>> m_actions; // by command identifier
};

} // namespace Workbench
