// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/menus/menu_builder_p.h>
#include <ui_base/menus/rc_menu_manager_p.h>
#include <ui_base/popups/arrowed_window_p.h>
#include <ui_base/popups/widget_pos_calculator.h>
#include <ui_base/popups/widget_pos_calculator_p.h>
#include <ui_base/toolbars/action_panel.h>
#include <ui_base/toolbars/action_panel_p.h>
#include <ui_base/toolbars/tool_button_with_button_menu_p.h>
#include <ui_base/toolbars/tool_button_with_widget_menu_p.h>
#include <ui_base/toolbars/toolbar_manager_p.h>
#include <ui_base/tooltips/tooltip_object_p.h>
#include <ui_base/tooltips/tooltip_wrapper_p.h>

#include <QLabel>

/// Classes of the library as another module extends them, each with more state than its base.
namespace Subclasses {

using namespace Vela::UiBase;

inline int alive = 0;

template <class Private>
struct More : Private {
  More() { ++alive; }
  ~More() override { --alive; }
  QString more = QStringLiteral("more");
};

/// A class with nothing else of its own.
template <class Base, class Private>
struct Own : Base {
  template <class... Values>
  explicit Own(const Values&... values) : Base(*new More<Private>, values...) {}
};

struct Button : Own<ToolButton, ToolButtonPrivate> {
  Button(QAction* action, ToolBar* bar) : Own(bar) { Initialize(action, bar); }
};
struct MenuButton : Own<ToolButtonWithMenu, ToolButtonWithMenuPrivate> {
  MenuButton(QAction* action, ToolBar* bar, QWidget* menu) : Own(action, bar, bar) { AttachMenu(menu); }
  QPoint GetMenuPosition() override { return {-900, -900}; } // where nobody sees it
  void ClickedHandler() override { ShowMenu(); }
};

/// Puts an application's own buttons into a bar and uses one. @return whether all of it works.
inline bool work() {
  {
    QMainWindow window;
    window.resize(400, 300);
    Own<ToolBar, ToolBarPrivate> bar(&window, Qt::TopToolBarArea);
    Own<ActionPanel, ActionPanelPrivate> panel(&window);
    QAction action(QStringLiteral("Own"));
    QLabel menu(QStringLiteral("a menu"), &window);
    QLabel flyout(QStringLiteral("a panel"));
    auto* const button = new MenuButton(&action, &bar, &menu);
    bar.AddToolButton(button);
    bar.AddToolButton(new Button(&action, &bar));
    bar.AddToolButton(new Own<ToolButtonWithButtonMenu, ToolButtonWithButtonMenuPrivate>(
        QIcon(), &bar, &panel, QString(), &bar));
    bar.AddToolButton(
        new Own<ToolButtonWithWidgetMenu, ToolButtonWithWidgetMenuPrivate>(&action, &bar, &flyout, &bar));
    const Own<ToolbarManager, ToolbarManagerPrivate> row(&bar);
    const Own<ArrowedWindow, ArrowedWindowPrivate> arrowed(nullptr);
    const Own<WidgetPosCalculator, WidgetPosCalculatorPrivate> calculator(nullptr);
    const Own<TooltipObject, TooltipObjectPrivate> tooltip(QString(), nullptr);
    const Own<TooltipWrapper, TooltipWrapperPrivate> wrapper(QString(), nullptr);
    const Own<ATooltipObject, ATooltipObjectPrivate> spot(QString(), nullptr);
    const Own<MenuBuilder, MenuBuilderPrivate> menus(QString(), &window, &window, Qt::ToolButtonTextOnly,
                                                     true, QString());
    const Own<RCMenuManager, RCMenuManagerPrivate> rightClick(&window, 0, true, nullptr);
    window.show();
    bar.ShowMe();
    button->click();
    if (alive != 14 || bar.Buttons().size() != 4 || !menu.isVisible() ||
        !window.rect().contains(menu.geometry()))
      return false;
  }
  return alive == 0;
}

} // namespace Subclasses
