// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/toolbars/tool_button_with_menu.h>

#include <QColor>
#include <QRect>

namespace Vela::UiBase {

class ArrowedWindow;
class ToolButtonWithWidgetMenuPrivate;

/// A button whose menu is any widget, a flyout panel as a rule, shown in an arrowed window beside the button.
///
/// A flyout is wired with the button: closing the one closes the other, and the command that is worked with
/// the flyout ends once, whoever closed it. The button of a flyout command opens the flyout once, whether it
/// was clicked or the command was run by a shortcut.
///
/// Several buttons, also of different toolbars and windows, may have the same widget. It opens beside the one
/// that was clicked; without a click beside the one used last that can be seen in the active window, else the
/// first that can be seen. The others leave it alone.
///
/// The widget is not owned. While it is the menu it is a child of the button's window; it goes back to the
/// parent it had, hidden and with the window flags it had, when it is replaced or its last button dies. If
/// that parent dies first, so does the widget; one without a parent is never deleted. A widget that is given
/// another parent meanwhile has that as its home.
///
/// @code
/// auto* command = new SmoothCommand(flyout, controller);   // a FlyoutCommand
/// auto* button = new ToolButtonWithWidgetMenu(command, bar, flyout, bar);
/// button->SetMenuParameters(true, arrow, Right, 7, AlignCenter);
/// @endcode
class UI_BASE_EXPORT ToolButtonWithWidgetMenu : public ToolButtonWithMenu {
  Q_OBJECT

public:
  /// A button for @p action that opens @p menu; see the class for whose that is.
  ToolButtonWithWidgetMenu(QAction* action, ToolBar* toolBar, QWidget* menu, QWidget* parent);
  ~ToolButtonWithWidgetMenu() override;

  /// Replaces the menu, which is hidden first. A flyout hears of its button. Null takes the menu away.
  /// @param arrowed whether it is shown in the arrowed window, otherwise as it is.
  void SetMenu(QWidget* menu, bool arrowed = true);
  /// @param autoDecide whether other arrows may be tried where this one does not fit.
  /// @param distance between button and arrow, in pixels.
  void SetMenuParameters(bool autoDecide, const SArrowParam& arrow, EDirection direction, int distance,
                         EWidgetsAlign alignment, const QPoint& offset = {});
  /// The window that hosts the menu, for changes to its looks; null until there was an arrowed menu.
  ArrowedWindow* GetArrowedWindow() const;

  /// The widget that stands in for this button when its menu is shown: a ToolButtonWithButtonMenu, or any
  /// other widget to show the menu beside. Not owned.
  void SetExtendController(QWidget* controller);
  /// See SetExtendController().
  QWidget* ExtendController() const;

  /// The button that would open the panel now: this one, or another one that has the same panel.
  QWidget* CurrentHost() override;

  void ShowMenu() override;
  void HideMenu() override;
  QPoint GetMenuPosition() override;
  /// The panel has moved in its window: places the window anew.
  void OnFlyoutMoved();

public Q_SLOTS:
  /// Shows the menu, through the extend controller if that is a button with a menu.
  void OnRequestShowMenu();
  /// The flyout has closed by itself.
  void OnFlyoutClosed();
  /// The flyout has another size and is placed again.
  void OnFlyoutResized();
  /// The side widgets of the flyout have come or gone, and it is placed again.
  void OnFlyoutSubWidgetVisibilityChanged(bool visible);
  /// A part of the flyout's background has a colour of its own.
  void OnFlyoutSetPartialBackgroundColor(bool showColor, QRect rc, QColor color);

Q_SIGNALS:
  /// The menu shall be shown in place of the extend controller's.
  void RequestShowMenu();
  /// The button wants its flyout closed; the flyout announces it in turn.
  void CloseFlyout();
  /// As if the Escape key was released in the flyout.
  void ESCKeyReleased();

protected:
  /// Takes the private object over.
  ToolButtonWithWidgetMenu(ToolButtonWithWidgetMenuPrivate& state, QAction* action, ToolBar* toolBar,
                           QWidget* menu, QWidget* parent);

  void ClickedHandler() override;
  void HideMenuEx() override;
  /// Hides the menu; the button is the toolbar's active one no more.
  void CloseMenu();

  void keyPressEvent(QKeyEvent* event) override;
  void keyReleaseEvent(QKeyEvent* event) override;
  void nextCheckState() override;

private:
  friend class Hosting;
  friend class ToolBar;
  friend class ToolBarPrivate;
  friend class ToolButtonWithButtonMenu;

  void Initialize(QWidget* menu);
  ToolButtonWithWidgetMenuPrivate* own() const;
};

} // namespace Vela::UiBase
