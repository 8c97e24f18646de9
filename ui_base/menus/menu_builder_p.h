// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/core/live_pointer.h>
#include <ui_base/menus/menu_builder.h>

#include <QHash>
#include <QMainWindow>
#include <QMenu>
#include <QPointer>
#include <QToolButton>

namespace Vela::UiBase {

class MenuBarKeys;
class MenuBarMenus;
class MenuBarWidget;
class MenuShortcuts;
struct MenuContents;

/// An item of the bar.
struct MenuBarItem {
  QSharedPointer<QToolButton> button;
  QString styleSheet = {}; // of its own; empty for the shared one
  bool hasClick = false;
  QPointer<QAction> keys = {}; // the action with the item's shortcut
};

/// Shared, so that an item outlives being replaced while it is worked on.
using MenuBarItemPointer = QSharedPointer<MenuBarItem>;

/// The state of a MenuBuilder, for subclasses that add to it.
class UI_BASE_EXPORT MenuBuilderPrivate {
public:
  MenuBuilderPrivate();
  virtual ~MenuBuilderPrivate();
  Q_DISABLE_COPY_MOVE(MenuBuilderPrivate)

  void createMenuBar(const QString& name, const QString& title);
  MenuBarItemPointer addOrInsert(bool insert, int index, const QString& name, const QIcon& icon,
                                 const QString& text, const QString& tooltip, const QString& accessibleName);
  int takePlaceOf(const QString& name);
  void addOfSpecifier(bool insert, int index, const AppMenuItemSpecifier& specifier,
                      const QString& accessibleName, const QString& styleSheet);
  void connectClick(const MenuBarItemPointer& item, const char* slot);
  void setShortcut(const MenuBarItemPointer& item, const QKeySequence& sequence);
  void follow(const MenuBarItemPointer& item, QAction& action);
  void takeOver(QMenuBar& source, QAction& action);
  QString freeName(const QString& wanted) const;
  bool shows(QAction& action) const;
  void showToggleState(const QString& name);
  QMenu* menuOf(const QString& name) const;
  QMenu* makeDropDown(const QString& name);
  void link(const MenuBarItemPointer& item, QMenu* menu);
  void applyStyle(const MenuBarItemPointer& item);
  void applyStyles();
  MenuContents contents();
  void refreshShortcuts();
  QWidget* shortcutHome() const;
  QList<QAction*> wantedShortcuts();

  MenuBuilder* q = nullptr;
  LivePointer<QMainWindow> mainWindow;
  QPointer<QWidget> parent;
  QPointer<QObject> receiver;
  LivePointer<MenuBarWidget> bar;
  MenuBarMenus* menus = nullptr; // the bar's, like the next
  MenuBarKeys* keys = nullptr;
  QPointer<QWidget> shortcuts; // a MenuShortcuts
  Qt::ToolButtonStyle style = Qt::ToolButtonTextOnly;
  bool visibleAtFirst = true;
  bool started = false;
  QHash<QString, MenuBarItemPointer> items;
  QHash<QToolButton*, QSharedPointer<AppMenuToggleItemSpecifier>> toggles;
  QHash<QString, LivePointer<QMenu>> subMenus;
  QList<QPointer<QObject>> filters;
};

} // namespace Vela::UiBase
