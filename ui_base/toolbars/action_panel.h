// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/toolbars/tool_bar.h>

namespace Vela::UiBase {

class ActionPanelPrivate;

/// The panel of large buttons at the left edge of a view, made from groups of commands. Its buttons open
/// sub-toolbars and flyouts to their right. While a flyout works, all buttons are disabled; the panel itself
/// stays enabled and so keeps receiving events.
///
/// Ownership, keyboard and threads are those of ToolBar.
///
/// @code
/// auto* panel = new Vela::UiBase::ActionPanel(view);
/// panel->setAccessibleName(tr("Tools"));
/// panel->AddCommandGroup(repairGroup);   // a CommandGroup of the controller
/// panel->PrepareActionPanel();
/// panel->ShowMe();
/// @endcode
class UI_BASE_EXPORT ActionPanel : public ToolBar {
  Q_OBJECT

public:
  /// The object name of every action panel, "action panel".
  static const QString OBJECT_NAME;

  /// Empty; shown by its toolbar manager or its owner.
  explicit ActionPanel(QWidget* parent);
  ~ActionPanel() override;

  /// Adds the button of an action to a toolbar, of the kind that suits the action, with the looks and the
  /// behaviour of an action panel: checkable and unchecked, in extend mode.
  /// @param parent over which the menu of the button opens.
  /// @param toolBar the panel itself or a toolbar of it.
  /// @param name the object name of the button.
  /// @param index the place in the button group, at the end when negative.
  /// @return the button; null without parent, toolbar or action.
  static ToolButton* CreateToolButton(QWidget* parent, QAction* action, ActionPanel& panel, ToolBar* toolBar,
                                      const QString& name, const QString& group = {}, int index = -1);
  /// With an icon of its own and a sub-toolbar, which is not taken over.
  static ToolButton* CreateToolButton(QWidget* parent, QAction* action, ActionPanel& panel, ToolBar* toolBar,
                                      const QIcon& icon, ToolBar* menu, const QString& name,
                                      const QString& group = {}, int index = -1);

  /// To be called when the panel has been filled: choosing from a menu closes it.
  void PrepareActionPanel();
  /// Enables or disables all buttons, also those of sub-toolbars, and keeps them disabled whatever becomes of
  /// their actions. Enabled again, each is as its action says, or as the application left it. Flyouts that
  /// work keep them disabled meanwhile.
  void SetEnabled(bool enabled);

public Q_SLOTS:
  /// A flyout works: disables the buttons, until each that works is idle again. Flyouts that open from the
  /// panel are connected by it. Called by hand it is SetEnabled().
  void OnFlyoutBusy();
  /// The flyout that kept the panel busy is idle.
  void OnFlyoutIdle();
  /// A menu was shown or hidden. Does nothing; for subclasses.
  virtual void OnButtonMenuVisibilityChange(ToolButton* button, bool isMenuVisible);

protected:
  /// Takes the private object over.
  ActionPanel(ActionPanelPrivate& state, QWidget* parent);

  /// Called once by the constructors, for which it is not virtual yet.
  virtual void Initialize();
  /// Gives the panel its looks.
  virtual void InitializeToolBar();

  ToolButton* AddButton(ToolBar* bar, CommandGroup* group, int index) override;
  ToolButton* AddSingleCommand(CommandBase* command, CommandGroup* group) override;
  /// An action panel with the looks of this one, horizontal; those below take turns.
  ToolBar* CreateSubToolBar(CommandGroup* group) override;
  /// A flyout gets the Escape key; any other panel is hidden.
  void OnDismissWidgetMenu(ToolButtonWithButtonMenu* buttonMenu,
                           ToolButtonWithWidgetMenu* widgetMenu) override;

private:
  void applyColors();
  void prepare(ToolButton* button);
  void watchFlyouts(const ToolButton* button);
  void watchFlyout(const ToolButtonWithMenu& opener);
  void noteBusy(const QObject& flyout);
  void flyoutDied(const QObject* flyout);
  ActionPanelPrivate* own() const;
  friend class ActionPanelPrivate;
};

} // namespace Vela::UiBase
