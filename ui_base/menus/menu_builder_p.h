// SPDX-License-Identifier: MIT
#pragma once

#include "menu_bar_keys.h"
#include "menu_bar_menus.h"
#include "menu_bar_widget.h"
#include "menu_builder.h"
#include "menu_contents.h"

#include <ui_base/core/live_pointer.h>

#include <QHash>
#include <QMainWindow>
#include <QMenu>
#include <QPointer>
#include <QToolButton>

namespace Vela::UiBase {

/// The object name; where there is none, the text as it is shown.
QString nameOr(const QObject& object, const QString& text);

/// An item of the bar.
struct MenuBarItem {
  QSharedPointer<QToolButton> button;
  QString styleSheet; // of its own; empty for the shared one
  bool hasClick = false;
  QPointer<QAction> action = {}; // that a click triggers
};

class MenuBuilderPrivate {
public:
  explicit MenuBuilderPrivate(MenuBuilder* owner) : q(owner) {}

  void createMenuBar(const QString& name, const QString& title);
  MenuBarItem* addOrInsert(bool insert, int index, const QString& name, const QIcon& icon,
                           const QString& text, const QString& tooltip, const QString& accessibleName);
  int takePlaceOf(const QString& name);
  void addOfSpecifier(bool insert, int index, const AppMenuItemSpecifier& specifier,
                      const QString& accessibleName, const QString& styleSheet);
  void connectClick(MenuBarItem* item, const QString& name, const char* slot);
  void follow(MenuBarItem& item, QAction& action);
  void showToggleState(const QString& name);
  QMenu* makeDropDown(const QString& name);
  void adopt(const QString& name, QMenu& menu);
  void link(MenuBarItem& item, QMenu* menu);
  void dress(MenuBarItem& item);
  void dressAll();
  MenuContents contents();

  MenuBuilder* const q;
  LivePointer<QMainWindow> mainWindow;
  QPointer<QWidget> parent;
  QPointer<QObject> receiver;
  LivePointer<MenuBarWidget> bar;
  MenuBarMenus* menus = nullptr; // the bar's, like the next
  MenuBarKeys* keys = nullptr;
  Qt::ToolButtonStyle style = Qt::ToolButtonTextOnly;
  bool visibleAtFirst = true;
  bool started = false;
  QHash<QString, MenuBarItem> items;
  QHash<QToolButton*, QSharedPointer<AppMenuToggleItemSpecifier>> toggles;
  QHash<QString, LivePointer<QMenu>> menusByName;
  QList<QPointer<QObject>> filters;
};

} // namespace Vela::UiBase
