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

struct Bar : ToolBar {
  explicit Bar(QWidget* parent) : ToolBar(*new More<ToolBarPrivate>, parent, Qt::TopToolBarArea) {}
};
struct Panel : ActionPanel {
  explicit Panel(QWidget* parent) : ActionPanel(*new More<ActionPanelPrivate>, parent) {}
};
struct Button : ToolButton {
  Button(QAction* action, ToolBar* bar) : ToolButton(*new More<ToolButtonPrivate>, bar) {
    Initialize(action, bar);
  }
};
struct MenuButton : ToolButtonWithMenu {
  MenuButton(QAction* action, ToolBar* bar, QWidget* menu)
      : ToolButtonWithMenu(*new More<ToolButtonWithMenuPrivate>, action, bar, bar) {
    AttachMenu(menu);
  }
  QPoint GetMenuPosition() override { return {-900, -900}; } // where nobody sees it
  void ClickedHandler() override { ShowMenu(); }
};
struct SubToolBarButton : ToolButtonWithButtonMenu {
  SubToolBarButton(ToolBar* bar, ToolBar* menu)
      : ToolButtonWithButtonMenu(*new More<ToolButtonWithButtonMenuPrivate>, QIcon(), bar, menu, {}, bar) {}
};
struct PanelButton : ToolButtonWithWidgetMenu {
  PanelButton(QAction* action, ToolBar* bar, QWidget* menu)
      : ToolButtonWithWidgetMenu(*new More<ToolButtonWithWidgetMenuPrivate>, action, bar, menu, bar) {}
};
struct Window : ArrowedWindow {
  Window() : ArrowedWindow(*new More<ArrowedWindowPrivate>, nullptr) {}
};
struct Calculator : WidgetPosCalculator {
  Calculator() : WidgetPosCalculator(*new More<WidgetPosCalculatorPrivate>, nullptr) {}
};
struct Tooltip : TooltipObject {
  Tooltip() : TooltipObject(*new More<TooltipObjectPrivate>, {}, nullptr) {}
};
struct Wrapper : TooltipWrapper {
  Wrapper() : TooltipWrapper(*new More<TooltipWrapperPrivate>, {}, nullptr) {}
};
struct Spot : ATooltipObject {
  Spot() : ATooltipObject(*new More<ATooltipObjectPrivate>, {}, nullptr) {}
};
struct Menus : MenuBuilder {
  explicit Menus(QMainWindow* window)
      : MenuBuilder(*new More<MenuBuilderPrivate>, {}, window, window, Qt::ToolButtonTextOnly, true, {}) {}
};
struct RightClick : RCMenuManager {
  explicit RightClick(QMainWindow* window)
      : RCMenuManager(*new More<RCMenuManagerPrivate>, window, 0, true, nullptr) {}
};
struct Row : ToolbarManager {
  explicit Row(ToolBar* main) : ToolbarManager(*new More<ToolbarManagerPrivate>, main) {}
};

/// Puts an application's own buttons into a bar and uses one. @return whether all of it works.
inline bool work() {
  {
    QMainWindow window;
    window.resize(400, 300);
    Bar bar(&window);
    Panel panel(&window);
    QAction action(QStringLiteral("Own"));
    QLabel menu(QStringLiteral("a menu"), &window);
    QLabel flyout(QStringLiteral("a panel"));
    auto* const button = new MenuButton(&action, &bar, &menu);
    for (ToolButton* const each :
         {static_cast<ToolButton*>(button), static_cast<ToolButton*>(new Button(&action, &bar)),
          static_cast<ToolButton*>(new SubToolBarButton(&bar, &panel)),
          static_cast<ToolButton*>(new PanelButton(&action, &bar, &flyout))})
      bar.AddToolButton(each);
    const Row row(&bar);
    const Window arrowed;
    const Calculator calculator;
    const Tooltip tooltip;
    const Wrapper wrapper;
    const Spot spot;
    const Menus menus(&window);
    const RightClick rightClick(&window);
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
