// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/toolbars/tool_bar_looks.h>
#include <ui_base/toolbars/tool_bar_place.h>
#include <ui_base/toolbars/tool_button.h>
#include <ui_base/ui_base_export.h>

#include <QIcon>
#include <QList>
#include <QWidget>

#include <memory>

class QGraphicsDropShadowEffect;

namespace Vela::UiBase {

class CommandBase;
class CommandGroup;
class ToolBarPrivate;
class ToolButtonWithButtonMenu;
class ToolButtonWithMenu;
class ToolButtonWithWidgetMenu;

/// A floating strip of tool buttons at one edge of its parent, or the menu of a button of another toolbar.
///
/// It is filled with commands and groups of commands, keeps at most one flyout open, and closes the menus of
/// its buttons when the user clicks elsewhere. What is added to a group or removed from it later is added and
/// removed here too; a command that dies takes its button along, and the menu that was open. The state of the
/// buttons' commands is looked at once per turn of the event loop, however many of them change.
///
/// The buttons stand in groups, each with its panel, from the left or the top, in right-to-left layouts from
/// the right. When the bar is shorter than they need, a button at its end lists those that do not fit;
/// choosing one scrolls it into view and clicks it.
///
/// Keyboard: F6 goes to the first toolbar of the window, from there to the next one, to the menu bar of a
/// MenuBuilder, and back to where the focus was; Shift+F6 goes the other way. The arrow keys, Home and End
/// move along the buttons, Space and Return click, the arrow key that points to a menu opens it and goes in.
/// Escape closes the innermost menu, then gives the focus back to where it was.
///
/// Owned by its parent like any widget. It owns its buttons and the sub-toolbars made from groups; a menu
/// that was handed to it stays its creator's. Main thread only; sizes are in pixels, times in milliseconds.
///
/// @code
/// auto* bar = new Vela::UiBase::ToolBar(view, Qt::TopToolBarArea);
/// bar->setAccessibleName(tr("Main toolbar"));
/// bar->SetCentered(true);
/// bar->AddCommandGroup(viewGroup);   // a CommandGroup of the controller
/// bar->ShowAnimated();
/// @endcode
class UI_BASE_EXPORT ToolBar : public QWidget, public ToolBarLooks {
  Q_OBJECT

public:
  /// @param autoPositionInterval how long after the last change of the parent's size the bar is placed anew.
  /// @param hideOnClick whether a click on a plain button closes the bar, or the menu that it is.
  /// @param area the edge, which also gives the orientation; with Qt::NoToolBarArea there is no layout until
  /// SetGridLayout() or SetArea().
  ToolBar(int autoPositionInterval, bool hideOnClick, QWidget* parent, Qt::ToolBarArea area);
  /// Empty, along the edge of @p parent that @p area names.
  ToolBar(QWidget* parent, Qt::ToolBarArea area);
  ~ToolBar() override;

  /// \name Building
  /// @{

  /// Adds the commands of a group in a panel of their own. A group in it that is virtual or has no icon
  /// becomes a panel of its own, any other one a button that opens a sub-toolbar. The group is not owned.
  virtual void AddCommandGroup(CommandGroup* group);
  /// Adds a plain button.
  /// @param group the name of the button group; a new one is made when there is none of that name.
  /// @param index the position in the group, at the end when negative or too large.
  /// @return the button; null when there is no action.
  ToolButton* AddAction(QAction* action, const QString& group = {}, int index = -1,
                        bool applyTooltipParams = true, bool applyMenuParams = true);
  /// Adds a button that opens another toolbar, which is not taken over.
  /// @param action what the button stands for, or null. It is not triggered by a click.
  /// @param icon shown on the button; when null the icon of the action.
  /// @param applyParams whether the defaults for tooltips and menus are applied.
  /// @param name the object name and the accessible name of the button.
  ToolButtonWithButtonMenu* AddAction(QAction* action, const QIcon& icon, ToolBar* menu, bool applyParams,
                                      const QString& name, const QString& group = {}, int index = -1);
  /// Adds a button that opens a widget, a flyout as a rule, which is not taken over.
  ToolButtonWithWidgetMenu* AddAction(QAction* action, QWidget* menu, const QString& group = {},
                                      int index = -1, bool applyTooltipParams = true,
                                      bool applyMenuParams = true);
  /// Adds a button of the application's own, made for this bar, and takes it over: a subclass of ToolButton,
  /// say. It gets the looks of the bar like any other. Null and a button of another bar are ignored.
  void AddToolButton(ToolButton* button, const QString& group = {}, int index = -1,
                     bool applyTooltipParams = true, bool applyMenuParams = true);
  /// Removes the buttons of a command, here and in the sub-toolbars; of a group everything made from it.
  virtual void RemoveCommand(CommandBase* command);

  /// Adds the kind of button that suits an action to a bar: one with a widget menu for a flyout command, one
  /// with a sub-toolbar for a command group, a plain one otherwise.
  /// @param parent over which the menus of the button open.
  /// @return the button, or null without parent or action.
  static ToolButton* CreateToolButton(QWidget* parent, QAction* action, ToolBar& bar,
                                      const QString& group = {}, int index = -1,
                                      bool applyTooltipParams = true, bool applyMenuParams = true);
  /// A toolbar that suits as the menu of a button of a vertical panel: horizontal, with the looks of the
  /// base. Owned by its parent.
  static ToolBar* CreateActionPanelToolBar(QWidget* parent, const ToolBar& base);
  /// Adds a button with an empty sub-toolbar to a main toolbar: the menu drops away from the edge, with the
  /// looks of the bar, and dies with the bar. Fill it through its GetMenu().
  static ToolButtonWithButtonMenu* CreateMainToolBarButtonMenu(ToolBar& bar, const QIcon& icon,
                                                               const QString& name, const QString& group = {},
                                                               int index = -1);
  /// @}

  /// \name Looking up
  /// @{

  /// The buttons in the order of the layout.
  QList<ToolButton*> Buttons() const;
  /// Those with a menu; with `nested` those of the sub-toolbars too, each behind the button it belongs to.
  QList<ToolButtonWithMenu*> MenuButtons(bool nested) const;
  /// The first button of the command with that identifier, or with that object name; null when there is none.
  ToolButton* FindOneButton(const QString& id, bool nested) const;
  /// The button whose flyout is open, or null. It belongs to the base toolbar of the nest.
  ToolButtonWithWidgetMenu* GetActiveButton() const;
  /// See GetActiveButton().
  void SetActiveButton(ToolButtonWithWidgetMenu* button);
  /// The outermost toolbar of the nest; this one when it is no menu.
  ToolBar* GetBaseToolBar() const;
  /// Has F6 lead to a bar of another kind, too, as long as it lives: to the bar itself where Tab
  /// reaches it, else to the first thing in it. It may stand anywhere, be hidden, and get other windows. Null
  /// is ignored.
  static void AddToFocusCycle(QWidget* bar);
  /// The button whose menu this toolbar is, or null.
  ToolButtonWithMenu* OwnerButton() const;
  /// See OwnerButton().
  void SetOwnerButton(ToolButtonWithMenu* button);
  /// @}

  /// \name Form
  /// The looks are set one by one by the functions of ToolBarLooks, or all at once.
  /// @{
  const ToolBarParams& Params() const override;
  void SetParams(const ToolBarParams& params) override;
  /// Takes over all of Params(), and the looks of the shadow. The area, the grid and the buttons stay.
  void CopyAllParametersFrom(const ToolBar* other);
  /// Gives a toolbar the looks of a main toolbar, and a name, which is also its accessible name when it has
  /// none.
  static void ApplyDefaultToolbarParams(ToolBar* toolBar, const QString& name);
  /// @param nested for the sub-toolbars too.
  void SetButtonStyleSheet(const QString& styleSheet, bool nested);
  /// The shadow, whose looks may be changed; null while it is disabled.
  QGraphicsDropShadowEffect* GetShadow() const;
  /// The edge it stands at.
  Qt::ToolBarArea Area() const;
  /// Follows from Area().
  Qt::Orientation Orientation() const;
  /// Moves it to an edge and turns its buttons that way.
  void SetArea(Qt::ToolBarArea area);
  /// Lays the buttons of each group out in rows of so many; 0 for one row or column.
  void SetGridLayout(int columns);
  /// 0 unless its buttons stand in a grid.
  int GridColumns() const;
  /// @}

  /// \name Place
  /// @{

  /// Where the bar rests, and how far it has slid out from there.
  ToolBarPlace Place() const;
  /// Moves the bar to a place in its parent that it keeps, and to which its slides lead: switches
  /// auto-positioning off. In the middle of a slide it ends there. A move() counts along the edge only:
  /// across it the next slide ends at the edge, or at the place that was set.
  void SetPos(const QPoint& position);
  /// How long changes are gathered before it is placed again; 0 places at once.
  void SetAutoPositionInterval(int milliseconds);
  /// Makes the bar as large as its content, but not longer than the parent.
  /// @param reposition also places it at its edge, if auto-positioning is on.
  void AdjustToolBarSize(bool reposition);
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;
  /// @}

  /// \name Showing
  /// These may follow one another at any time, also in the middle of a slide; the last one counts. A bar that
  /// the application has disabled or locked stays so when it is shown.
  /// @{

  /// Shows it, sliding where that is enabled.
  void ShowMe();
  /// Hides the bar and all its menus.
  /// @param byRequest remembered, see HiddenByRequest(): the user does not want to see it.
  void HideMe(bool byRequest);
  /// Whether HideMe() was asked for, rather than that an ancestor is hidden.
  bool HiddenByRequest() const;
  /// Slides the bar in from outside of its edge; in a layout or as a window, from outside of its own place.
  void ShowAnimated();
  /// Slides it out; it is locked at once, and hidden in the end.
  void HideAnimated();
  /// Shows the bar where it rests, or hides it, at once.
  void setVisible(bool visible) override;
  /// Whether ShowMe() or ShowAnimated() has begun to show the bar, and nothing has begun to hide it since.
  bool InShowMode();
  /// How long a slide takes; 300 at first.
  void SetAnimationDuration(int milliseconds);
  /// While locked, the bar takes no input. It stays enabled, so that what goes to it reaches nobody else.
  void SetLocked(bool locked);
  /// Whether it is locked, by SetLocked() or for the time of a slide.
  bool IsLocked() const;
  /// @}

  /// \name Menus
  /// @{

  /// Hides the menus of all buttons but one; those of sub-toolbars too when this is the base toolbar.
  void HideAllButtonMenusExcept(bool saveState, ToolButton* except);
  /// Closes the innermost menu that is open. @return whether there was one.
  bool DismissLeafMenu();
  /// @}

  /// \name Commands
  /// @{

  /// Calls EnableActions() of every button, here and in the sub-toolbars.
  void EnableActions();
  /// Asks the handler from now on whether the buttons of an action, present and future ones, are enabled.
  /// Not owned; it outlives the toolbar, or is removed before.
  void AddCallbackHandler(ToolButton::IToolButtonCallbackHandler* handler, QAction* action);
  /// Takes a handler away from all actions.
  void RemoveCallbackHandler(ToolButton::IToolButtonCallbackHandler* handler);
  /// Makes a button one of those of which one at most is checked.
  void AddExclusiveGroupButton(const QString& group, QToolButton* button);
  /// @}

public Q_SLOTS:
  /// The user clicked outside of the bar and its menus.
  void OnMouseClickedOutside();
  /// A button was clicked; the sender is the button.
  void OnToolButtonClicked();
  /// Places the bar in its parent; called by a timer.
  void OnAutoPosition();
  /// The bar has slid in.
  void OnShowAnimationDone();
  /// The bar has slid out, and hides.
  void OnHideAnimationDone();
  /// Resizing has come to rest.
  void OnResizeTimerTimeOut();

Q_SIGNALS:
  /// Buttons came or went, or their sizes changed.
  void LayoutChanged();
  /// The menu of one of its buttons has opened or closed.
  void ButtonMenuVisibilityChange(ToolButton* button, bool isVisible);
  /// It has slid in, or was shown at once.
  void ShowAnimationFinished();
  /// It has slid out, or was hidden at once.
  void HideAnimationFinished();
  /// The flyout that is open shall be closed, which then happens.
  void CloseFlyout();
  /// One of its buttons was clicked.
  void ToolButtonClicked(ToolButton* button);

protected:
  /// Takes the private object over.
  ToolBar(ToolBarPrivate& state, QWidget* parent, Qt::ToolBarArea area, int autoPositionInterval = 0,
          bool hideOnClick = false);

  /// Makes the button of a group and its sub-toolbar, with CreateSubToolBar(), and adds it to a bar.
  virtual ToolButton* AddButton(ToolBar* bar, CommandGroup* group, int index);
  /// Adds what a group holds. @param parent the group that holds it, or null.
  virtual void AddCommandGroup(CommandGroup* group, CommandGroup* parent);
  /// Adds the button of one command to the panel of its group, at the place of its rank.
  virtual ToolButton* AddSingleCommand(CommandBase* command, CommandGroup* group);
  /// Takes away the button of one command.
  virtual void RemoveSingleCommand(CommandBase* command);
  /// Makes the empty sub-toolbar of a group. It is deleted with this bar.
  virtual ToolBar* CreateSubToolBar(CommandGroup* group);
  /// Places the bar at its edge.
  virtual void AutoPosition();
  /// Whether the mouse is over the bar.
  virtual bool Hovered() const;
  /// A flyout shall be closed; hides the menu of the button.
  /// @param buttonMenu the button that controls it, or null.
  virtual void OnDismissWidgetMenu(ToolButtonWithButtonMenu* buttonMenu,
                                   ToolButtonWithWidgetMenu* widgetMenu);

  bool event(QEvent* event) override;
  void changeEvent(QEvent* event) override;
  void enterEvent(QEnterEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  void hideEvent(QHideEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void moveEvent(QMoveEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void showEvent(QShowEvent* event) override;

  const std::unique_ptr<ToolBarPrivate> d;

private:
  friend class ToolBarPrivate;

  void Initialize(Qt::ToolBarArea area, int autoPositionInterval, bool hideOnClick);
};

} // namespace Vela::UiBase
