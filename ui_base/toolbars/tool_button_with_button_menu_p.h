// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/toolbars/tool_button_with_button_menu.h>
#include <ui_base/toolbars/tool_button_with_menu_p.h>
#include <ui_base/toolbars/tool_button_with_widget_menu.h>

#include <QPainterPath>

namespace Vela::UiBase {

/// The state of a ToolButtonWithButtonMenu, for subclasses that add to it.
class UI_BASE_EXPORT ToolButtonWithButtonMenuPrivate : public ToolButtonWithMenuPrivate {
public:
  QWidget* anchor() const override;
  bool isOpen() const override;

  /// The menu, but not one that is being destroyed.
  ToolBar* subToolBar() const;
  QList<ToolButton*> subButtons() const;
  /// Whether the button stands in the toolbar, or in one that opens from it.
  bool isReachedFrom(const ToolBar& bar) const;
  void wireSubButtons();
  static void wire(ToolButtonWithWidgetMenu& sub, ToolButtonWithButtonMenu& controller);
  static void unwire(ToolButtonWithWidgetMenu& sub);
  void rebuildArrow();
  void wearIcon(const QIcon& other);

  QIcon ownIcon;
  bool extendModeEnabled = false;
  bool inExtendMode = false;
  bool clearSelectionOnHide = false;
  bool menuCleared = true;
  QPointer<ToolButton> extendedButton;
  QPainterPath arrow;
  QPointer<ToolButtonWithWidgetMenu> extendController;

  QIcon wornIcon; // the sub-button's
};

} // namespace Vela::UiBase
