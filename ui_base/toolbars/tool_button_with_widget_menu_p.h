// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/popups/arrowed_window.h>
#include <ui_base/popups/flyout_base.h>
#include <ui_base/toolbars/tool_button_with_menu_p.h>
#include <ui_base/toolbars/tool_button_with_widget_menu.h>

namespace Vela::UiBase {

class FlyoutCommand;
class ToolButtonWithButtonMenu;

/// The state of a ToolButtonWithWidgetMenu, for subclasses that add to it.
class UI_BASE_EXPORT ToolButtonWithWidgetMenuPrivate : public ToolButtonWithMenuPrivate {
public:
  QWidget* popup() const override;
  QWidget* anchor() const override;

  /// The window, but not one that is being destroyed.
  ArrowedWindow* liveWindow() const;
  FlyoutBase* flyout() const;
  /// The command of the button, if its panel is not a flyout and it has begun.
  FlyoutCommand* activeSimpleCommand() const;
  ToolButtonWithButtonMenu* controllerMenu() const;

  void host();
  /// Gives the menu back to the parent it had.
  void giveBack();
  void ensureWindow();
  void dressWindow();
  /// Puts the window where it can lie over everything around the button.
  void followLayer();
  void wire(FlyoutBase& flyout);
  void unwire(FlyoutBase& flyout);
  void updatePartialBackground();
  /// Has a flyout ask for no more than there is room for.
  void limitFlyout(const QSize& limit) const;
  /// Where the window comes to stand when the flyout asks for no more than this for the window.
  QPoint placeWindow(const QSize& limit);
  QPoint placeWindowInside();

  LivePointer<ArrowedWindow> window;
  SArrowParam arrow;
  bool autoDecideArrow = false;
  QPointer<QWidget> extendController;

  bool arrowed = true;
  bool showingMenu = false; // by the button itself
  bool placing = false;
  bool placePending = false;
  QPointer<QWidget> home; // the parent of the menu while it is hosted elsewhere
  QMetaObject::Connection homeDeath;
  QRect partialBackground; // in the menu
  QColor partialColor;
};

} // namespace Vela::UiBase
