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
  QWidget* controller() const override;
  bool isOpen() const override;

  /// The menu, but not one that is being destroyed.
  ToolBar* subToolBar() const;
  QList<ToolButton*> subButtons() const;
  /// Whether the button stands in the toolbar, or in one that opens from it.
  bool isReachedFrom(const ToolBar& bar) const;
  /// Makes the button the controller of its sub-buttons, if it has an extend mode.
  void controlSubButtons();
  void letSubButtonsGo();
  void letGoOf(ToolBar& bar);
  /// The menu moves to the window that the toolbar has moved to.
  void followBar() const;
  void rebuildArrow();
  void showSubIcon(const QIcon& icon);
  /// What the extend mode keeps from the user, and gives back.
  void lockOthers(bool lock);
  /// No more while it leaves the extend mode: a button that comes then is free.
  bool locksOthers() const { return extend == Extended; }
  void clearSelection();
  void endStandingIn();

  /// While it leaves, the extend mode is not entered, and not left once more.
  enum EExtend : int { NotExtended, Extended, LeavingExtended };

  QIcon ownIcon;
  bool extendModeEnabled = false;
  EExtend extend = NotExtended;
  bool clearSelectionOnHide = false;
  QPointer<ToolButton> extendedButton;
  QMetaObject::Connection extendedDeath;
  QPainterPath arrow;
  QPointer<ToolButtonWithWidgetMenu> extendController;

  QIcon subIcon; // of the sub-button
  QMetaObject::Connection layoutChange;
};

} // namespace Vela::UiBase
