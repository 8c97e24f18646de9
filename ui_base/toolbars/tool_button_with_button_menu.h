// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/toolbars/tool_button_with_menu.h>

namespace Vela::UiBase {

class ToolButtonWithButtonMenuPrivate;
class ToolButtonWithWidgetMenu;

/// A button whose menu is a toolbar of sub-buttons. A small arrow in its corner points to where the menu
/// opens, and back while it is open.
///
/// With SetExtendMode() it stands in for the sub-button that opens a flyout: while the flyout is open beside
/// it, it shows the sub-button's icon, and the other buttons of its toolbar are locked. That ends with a
/// second click or with the flyout.
///
/// The sub-toolbar is not owned.
///
/// @code
/// auto* menu = new ToolBar(view, Qt::TopToolBarArea);
/// menu->AddAction(manager->findCommand(SmoothCommand::className()));
/// auto* button = bar->AddAction(nullptr, icon, menu, true, tr("Repair"));
/// button->SetMenuParameters(Right, 7, AlignCenter);
/// @endcode
class UI_BASE_EXPORT ToolButtonWithButtonMenu : public ToolButtonWithMenu {
  Q_OBJECT

public:
  /// @param toolBar the toolbar that the button belongs to, null for none.
  /// @param menu the sub-toolbar, may be null.
  /// @param name the object name, also text and tooltip.
  ToolButtonWithButtonMenu(const QIcon& icon, ToolBar* toolBar, ToolBar* menu, const QString& name,
                           QWidget* parent);
  ~ToolButtonWithButtonMenu() override;

  /// The sub-toolbar, or null.
  ToolBar* GetMenu() const;
  /// Replaces the sub-toolbar, and becomes its owner button. The one before is hidden and let go. A toolbar
  /// from which this button can be reached is no menu for it, and is ignored.
  void SetMenu(ToolBar* menu);
  /// Where the menu stands beside the button.
  void SetMenuParameters(EDirection direction, int distance, EWidgetsAlign alignment,
                         const QPoint& offset = {});

  /// Whether the checked sub-buttons are unchecked when the menu hides.
  void SetClearSelectionOnHide(bool clear);
  /// Has the flyouts of the sub-buttons open beside this button; also those of sub-buttons that are added
  /// later. Does nothing without a sub-toolbar.
  void SetExtendMode(bool extend) override;
  /// See SetExtendMode().
  bool IsExtendModeEnabled() const;
  /// Whether the button stands in for a sub-button now.
  bool IsInExtendMode() const;
  /// The sub-button that it stands in for, or null.
  ToolButton* ExtendedButton() const;

  void ShowMenu() override;
  QPoint GetMenuPosition() override;

Q_SIGNALS:
  /// The selection of the menu was cleared: the checked sub-buttons were unchecked, or the extend mode ended.
  void ButtonMenuCleared();

protected:
  /// Takes the private object over.
  ToolButtonWithButtonMenu(ToolButtonWithButtonMenuPrivate& state, const QIcon& icon, ToolBar* toolBar,
                           ToolBar* menu, const QString& name, QWidget* parent);

  void ClickedHandler() override;
  void HideMenuEx() override;
  /// Whether the action is one of a sub-button.
  bool IsActionAssociated(QAction* action) const override;
  /// The first action of a sub-button, or the first checked one; null when there is none.
  QAction* GetFirstSubMenuAction(bool checkedOnly) const;
  /// Gives the sub-toolbar the looks of the toolbar that the button belongs to.
  void ApplyBaseToolBarParamsToButtonMenu();
  /// Begins to stand in for a sub-button.
  void OnEnterExtendMode(ToolButton* button);
  /// Ends that, if it does, and unchecks the button.
  void OnExitExtendMode();
  /// The sub-button that the button stands in for has changed: its menu is the one that is shown.
  void RecordExtendedButton(ToolButton* button);

  void actionEvent(QActionEvent* event) override;
  void changeEvent(QEvent* event) override;
  void enterEvent(QEnterEvent* event) override;
  void hideEvent(QHideEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void timerEvent(QTimerEvent* event) override;

private:
  friend class PanelSession;
  friend class ToolBar;
  friend class ToolBarPrivate;
  friend class ToolButtonPrivate;
  friend class ToolButtonWithButtonMenuPrivate;
  friend class ToolButtonWithWidgetMenu;

  void Initialize(ToolBar* menu);
  ToolButtonWithButtonMenuPrivate* own() const;
};

} // namespace Vela::UiBase
