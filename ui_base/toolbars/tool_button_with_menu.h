// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/toolbars/menu_state.h>
#include <ui_base/toolbars/tool_button.h>

namespace Vela::UiBase {

class ToolButtonWithMenuPrivate;

/// A button that shows a popup, its menu, beside it. The menu follows the button and closes with it.
///
/// However the menu is closed, by the button, by the toolbar or by itself, it is announced once, the button
/// is unchecked and its tooltip comes back. A menu that was opened by keyboard has the focus, and Escape
/// closes it and gives the focus back to the button.
///
/// The menu is not owned and may die at any time. See ToolButtonWithButtonMenu and ToolButtonWithWidgetMenu.
class UI_BASE_EXPORT ToolButtonWithMenu : public ToolButton {
  Q_OBJECT

public:
  /// A button for @p action on @p toolBar, which may be null.
  ToolButtonWithMenu(QAction* action, ToolBar* toolBar, QWidget* parent);
  /// @param name the object name, also text and tooltip.
  ToolButtonWithMenu(const QIcon& icon, ToolBar* toolBar, const QString& name, QWidget* parent);
  ~ToolButtonWithMenu() override;

  /// The menu, or null.
  QWidget* GetMenu() const;
  /// What places the menu; owned by the button, never null.
  WidgetPosCalculator* GetPosCalculator() const;
  /// Whether the menu is visible. One that another button shows is not this one's.
  bool IsMenuShowing() const;
  /// How far opening or closing the menu is.
  MenuState::EPhase MenuPhase() const;
  /// Whether the other button stands in the menu, or in a menu of one of its buttons.
  bool IsSubMenuButton(ToolButton* button) const;

  /// Whether the menu stays when another button of the toolbar is clicked.
  void SetNoHideMenuOnClick(bool noHide);
  /// See SetNoHideMenuOnClick().
  bool NoHideMenuOnClick() const;
  /// Whether SavedMenuOwner() survives the next hiding of the menu.
  void SetSaveMenuState(bool save);
  /// See SetSaveMenuState().
  bool SaveMenuState() const;
  /// The button whose menu the application wants to come back to; forgotten when the menu is shown. Not
  /// owned.
  void SetSavedMenuOwner(ToolButtonWithMenu* owner);
  /// See SetSavedMenuOwner().
  ToolButtonWithMenu* SavedMenuOwner() const;

  /// Shows the menu at its place, checks the button if it is checkable, and announces it. A menu that is
  /// shown already is placed anew.
  virtual void ShowMenu();
  /// Hides the menu and announces it.
  virtual void HideMenu();
  /// Where the menu is to stand, in the coordinates of its parent, or global ones when it has none. Where it
  /// could not be seen there it is shown at another place beside the button.
  virtual QPoint GetMenuPosition() = 0;

public Q_SLOTS:
  /// Acts as a click if the widget is visible.
  void OnCloseMenu(QWidget* widget, bool isChecked);
  /// An action of the menu was triggered: passes the sender to ActionTriggeredHandler().
  void OnActionTriggered(bool checked);

Q_SIGNALS:
  /// Once for each showing and each hiding of the menu; also sent by the toolbar. Who wants to delete the
  /// toolbar on that does so with deleteLater(): it may just be hidden.
  void ButtonMenuVisibilityChange(ToolButton* button, bool isMenuVisible);

protected:
  /// Take the private object over.
  ToolButtonWithMenu(ToolButtonWithMenuPrivate& state, QAction* action, ToolBar* toolBar, QWidget* parent);
  /// For subclasses with a private object of their own.
  ToolButtonWithMenu(ToolButtonWithMenuPrivate& state, const QIcon& icon, ToolBar* toolBar,
                     const QString& name, QWidget* parent);

  /// Makes a widget the menu of the button, hidden, in place of the one before; for subclasses. Not owned.
  void AttachMenu(QWidget* menu);
  /// Called by the constructors.
  void InitializePosCalculator();
  /// Where the menu stands beside the button.
  void SetMenuPosParameters(EDirection direction, int distance, EWidgetsAlign alignment,
                            const QPoint& offset = {});
  /// Moves a menu that is shown to a freshly computed place, where it can be seen.
  void RecalcMenuPosAndMove();

  void ClickedHandler() override = 0;
  /// The menu goes: unchecks the button.
  virtual void HideMenuEx();
  /// An action of the menu was triggered: hides the menu.
  virtual void ActionTriggeredHandler(QAction* action);

  /// The menu is hidden, however it came about: does what is left to do, once.
  void MenuHidden();

  bool eventFilter(QObject* watched, QEvent* event) override;
  void hideEvent(QHideEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void moveEvent(QMoveEvent* event) override;
  void nextCheckState() override;

private:
  friend class ToolButtonWithMenuPrivate;
  friend class ToolButtonWithButtonMenu;
  friend class ToolBar;
  friend class ToolBarPrivate;

  void Initialize();
  void PlaceAndShow(bool opens);
  ToolButtonWithMenuPrivate* own() const;
};

} // namespace Vela::UiBase
