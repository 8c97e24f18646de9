// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/core/focus_keeper.h>
#include <ui_base/popups/widget_pos_calculator.h>
#include <ui_base/toolbars/menu_state.h>
#include <ui_base/toolbars/tool_button_p.h>
#include <ui_base/toolbars/tool_button_with_menu.h>

namespace Vela::UiBase {

/// The state of a ToolButtonWithMenu, for subclasses that add to it.
class UI_BASE_EXPORT ToolButtonWithMenuPrivate : public ToolButtonPrivate {
public:
  ToolButtonWithMenuPrivate();
  ~ToolButtonWithMenuPrivate() override;

  void forgetClick() override;

  /// What is placed, shown and hidden: the menu, or the window that hosts it.
  virtual QWidget* popup() const;
  /// What stands in for the button, or null.
  virtual QWidget* controller() const;
  /// What the popup is placed beside.
  QWidget* anchor() const;
  /// Whether a click closes rather than opens.
  virtual bool isOpen() const;
  /// Whether the menu, if it is visible, is shown by this button.
  virtual bool ownsPopup() const;
  /// The popup is about to be placed and shown, not for the first time unless `opens`. @return whether it can
  /// be.
  virtual bool beginShowing(bool opens);
  /// It has gone: tells those who have to do with it, beside the button.
  virtual void endShowing();

  /// Shows the menu when nothing is under way any more: not in the event in which the popup is being hidden.
  void showLater();
  /// The button if it can be seen, else the first that can of those which open the toolbar it stands in; or
  /// null.
  QWidget* seenPlace() const;
  /// Follows the popup from now on, and the one before no more.
  void watch(QWidget* popup);
  QPoint place() const;
  /// Moves the popup to the place that the button gives it, or to where it can be seen. The button may be
  /// gone afterwards.
  virtual void movePopup();
  /// Has the bar show what the menu opens beside.
  void comeIntoSight() const;
  /// The menu closes: looks whether a press on the button did it.
  void noteClosing();
  /// Goes into a menu that was opened by keyboard.
  void enterByKeyboard();

  QPointer<QWidget> menu;
  const std::unique_ptr<WidgetPosCalculator> posCalculator;
  bool noHideMenuOnClick = false;
  bool saveMenuState = false;
  bool opensLater = false; // showLater() was called
  QPointer<ToolButtonWithMenu> savedMenuOwner;

  MenuState state;
  QPointer<QWidget> watched;
  QMetaObject::Connection watchedDeath;
  FocusKeeper focus;
};

} // namespace Vela::UiBase
