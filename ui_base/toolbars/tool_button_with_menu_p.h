// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/popups/widget_pos_calculator.h>
#include <ui_base/toolbars/tool_button_p.h>
#include <ui_base/toolbars/tool_button_with_menu.h>

namespace Vela::UiBase {

/// The state of a ToolButtonWithMenu, for subclasses that add to it.
class UI_BASE_EXPORT ToolButtonWithMenuPrivate : public ToolButtonPrivate {
public:
  ToolButtonWithMenuPrivate();
  ~ToolButtonWithMenuPrivate() override;

  /// What is placed, shown and hidden: the menu, or the window that hosts it.
  virtual QWidget* popup() const;
  /// What the popup is placed beside.
  virtual QWidget* anchor() const;
  /// Whether a click closes rather than opens.
  virtual bool isOpen() const;

  /// Follows the popup from now on, and the one before no more.
  void watch(QWidget* popup);
  QPoint place() const;
  bool popupHasFocus() const;
  /// The menu closes: looks whether a press on the button did it.
  void noteClosing();
  /// Goes into a menu that was opened by keyboard.
  void enterByKeyboard();

  QPointer<QWidget> menu;
  const std::unique_ptr<WidgetPosCalculator> posCalculator;
  bool noHideMenuOnClick = false;
  bool closeOnHide = false; ///< The menu was shown; its hiding is still to be announced.
  bool saveMenuState = false;
  QPointer<ToolButtonWithMenu> savedMenuOwner;

  bool openAtClick = false; // as the click that is being handled found it
  bool closedByPress = false;
  bool popupHides = false; // and is not to be deleted
  QPointer<QWidget> watched;
  QPointer<QWidget> focusBefore;
};

} // namespace Vela::UiBase
