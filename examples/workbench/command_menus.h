// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/core/cmd_mgr_protocol.h>

#include <QCoreApplication>
#include <QHash>
#include <QLatin1String>
#include <QPointer>

class QAction;
class QMenu;
class QMenuBar;

namespace Vela::UiBase {
class CommandGroup;
}

namespace Workbench {

/// The sections of the menu bar. A command names its own as base group name.
inline constexpr QLatin1String FileSection("file");
inline constexpr QLatin1String ExitSection("file.exit");
inline constexpr QLatin1String EditSection("edit");
inline constexpr QLatin1String MeshSection("edit.mesh");
inline constexpr QLatin1String SelectSection("selection");
inline constexpr QLatin1String SelectedSection("selection.selected");
inline constexpr QLatin1String ToolsSection("tools");
inline constexpr QLatin1String MeasureSection("tools.measure");
inline constexpr QLatin1String ViewSection("view");
inline constexpr QLatin1String LookSection("view.look");
inline constexpr QLatin1String PhotoSection("photograph");
inline constexpr QLatin1String PageSection("view.page");
inline constexpr QLatin1String HelpSection("help");

/// Fills a menu bar with the commands of a view as they come and go. A group with a text becomes a sub-menu,
/// the commands of one without stand in the section of the group. The delegate of the view's command manager.
///
/// @code
/// auto menus = std::make_shared<CommandMenus>(*window.menuBar());
/// controller->setDelegate(menus, false);
/// @endcode
class CommandMenus : public Vela::UiBase::CmdMgrProtocol {
  Q_DECLARE_TR_FUNCTIONS(Workbench::CommandMenus)

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
  void insert(const Section& section, Vela::UiBase::CommandBase& command, const QString& id);

  QHash<QString, Section> m_sections;
  QMultiHash<QString, QPointer<QAction>> m_actions; // by the identifier of the command that was added
};

/// Adds a group to a menu as a sub-menu with the text of the group. The menu owns the sub-menu.
QMenu* addGroupMenu(QMenu& menu, QAction* before, const Vela::UiBase::CommandGroup& group);

} // namespace Workbench
