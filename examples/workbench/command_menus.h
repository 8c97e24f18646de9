// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/core/cmd_mgr_protocol.h>

#include <QCoreApplication>
#include <QHash>
#include <QLatin1String>
#include <QPointer>
#include <QStringList>

class QAction;
class QMenu;

namespace Vela::UiBase {
class CommandGroup;
class MenuBuilder;
} // namespace Vela::UiBase

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
/// the commands of one without stand in the section of the group; an item whose menu has no entry is hidden.
/// The palette command has an item of its own besides. The delegate of the view's command manager.
///
/// @code
/// auto* menus = new MenuBuilder(QStringLiteral("menu_bar"), window, window);
/// auto commands = std::make_shared<CommandMenus>(*menus);
/// controller->setDelegate(commands, false);
/// menus->Start();
/// @endcode
class CommandMenus : public Vela::UiBase::CmdMgrProtocol {
  Q_DECLARE_TR_FUNCTIONS(Workbench::CommandMenus)

public:
  /// Adds its items and menus, without entries, to the bar.
  explicit CommandMenus(Vela::UiBase::MenuBuilder& menus);

  /// Hides the menus in which nothing can be used on a page, an EPage.
  void showPage(int page);

  void commandAdded(Vela::UiBase::CmdMgr* manager, Vela::UiBase::CommandBase* command) override;
  void commandRemoved(Vela::UiBase::CmdMgr* manager, QString id) override;

private:
  // Commands are put before the action that ends their section.
  struct Section {
    QString menu;
    QPointer<QAction> end;
  };

  void addMenu(const QString& name, const char* text, const QStringList& sections);
  void insert(const Section& section, Vela::UiBase::CommandBase& command, const QString& id);
  QAction* insertSubMenu(const Section& section, const Vela::UiBase::CommandGroup& group);
  void showUsedItems();

  QPointer<Vela::UiBase::MenuBuilder> m_menus;
  int m_page = 0;
  QHash<QString, Section> m_sections;
  QMultiHash<QString, QPointer<QAction>> m_actions; // by the identifier of the command that was added
};

} // namespace Workbench
