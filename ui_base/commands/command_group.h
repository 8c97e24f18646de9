// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/commands/command_bag.h>
#include <ui_base/commands/command_base.h>

class QActionGroup;

namespace Vela::UiBase {

class CommandGroupPrivate;
class ToolBar;
class ToolButton;

/// A command that holds other commands, its children, and shows them together. It is itself checkable, so
/// that what shows the group can show whether one of its children is on.
///
/// The group shares ownership of its children. They stand in order of rank, equal ranks in order of addition.
/// Who observes the group also hears its children, those added later included, each of them once, whatever
/// other groups it stands in. Unlike those of a single command, the observers of a group are added and
/// removed on the main thread.
///
/// The group is checked while one of its children is, however that one came to be checked: by a user, by a
/// context, by cycling, or before it was added. Like every command that is toggled, it then runs; its own
/// work is nothing. Its checkable children are exclusive unless groupActionGroup() is set otherwise; make a
/// command checkable before it is added. A child of several groups is exclusive in the one it was added to
/// last.
///
/// @code
/// auto* shading = new CommandGroup(":/icons/shading.svg", tr("Shading"), "Shading");
/// shading->addCommand(new FlatShadingCommand(controller), 0);
/// shading->addCommand(new SmoothShadingCommand(controller), 1);
/// manager->addCommand(shading);
/// shading->setToolButton(bar->AddAction(shading));   // shows whether one of the two is on
/// @endcode
class UI_BASE_EXPORT CommandGroup : public CommandBase {
  Q_OBJECT

public:
  /// @param iconName what the toolkit service's icon provider is asked for; may be empty.
  /// @param toolTip the tooltip.
  /// @param name the object name, from which the identifier is made.
  CommandGroup(const QString& iconName, const QString& toolTip, const QString& name);
  /// The same with a tooltip that follows the language of the program.
  CommandGroup(const QString& iconName, const Text& toolTip, const QString& name);
  ~CommandGroup() override;

  /// The class name, "Vela::UiBase::CommandGroup".
  static QString className();
  /// The class name directly followed by the object name.
  QString commandId() const override;

  void setCommandState(const CommandState& state) override;
  /// Also looks into the groups among the children.
  bool hasCommand(const QString& id) const override;
  CommandBase* getCommand(const QString& id) override;
  /// Also passed on to the children.
  void addAttachedCommandGroupName(const QString& name) override;
  void removeAttachedCommandGroupName(const QString& name) override;

  void addObserver(CommandStateProtocol* observer) override;
  void addObserver(const std::shared_ptr<CommandStateProtocol>& observer, bool asynchronous) override;
  void removeObserver(CommandStateProtocol* observer) override;
  void removeObserver(const std::shared_ptr<CommandStateProtocol>& observer) override;
  void removeAllObservers() override;

  /// The children, to read.
  virtual const CommandBag& commandBag() const;
  /// The children.
  virtual CommandBag& commandBag();
  /// Adds a child at its rank. @return the child, or null when it is null, here already, the group itself, or
  /// a group that holds this one.
  virtual CommandBase* addCommand(const std::shared_ptr<CommandBase>& command, int rank = 0);
  /// Takes the plain pointer into shared ownership, unless it is refused.
  virtual CommandBase* addCommand(CommandBase* command, int rank = 0);
  /// Removes the first child of that identifier; the children of child groups are not looked at.
  virtual bool removeCommand(const QString& id);
  /// Removes that child, also when it is not the first of its identifier.
  bool removeCommand(const CommandBase* child);
  /// The group of that identifier, this one or one below it; or the one that directly holds the command of
  /// that identifier; or null.
  virtual CommandGroup* getCommandGroup(const QString& id);
  /// Takes over the children of another group, with their ranks. A child whose identifier stands here already
  /// stays behind, unless both are groups: then this one's absorbs the other's. The other group keeps what
  /// stays.
  virtual void absorbCommandGroup(CommandGroup* other);
  /// Like QAction::setEnabled(), for the tool button too.
  virtual void setEnabled(bool enabled);
  /// Like QAction::setChecked(), for the tool button too.
  virtual void setChecked(bool checked);
  /// The rank stored for an identifier, or 0.
  virtual int getCommandRank(const QString& id) const;
  /// Stores a rank. A child of that identifier moves to it, behind those of the same rank. Removing the last
  /// child of an identifier forgets its rank.
  virtual void setCommandRank(const QString& id, int rank);
  /// Whether the group only wraps a single command.
  virtual bool isVirtualGroup() const;
  /// See isVirtualGroup().
  virtual void setVirtualGroup(bool isVirtual);
  /// The present states of the group and everything below it; of several commands under one identifier the
  /// first counts.
  virtual CommandContext commandContext();

  /// Makes a group around one command, so that the command can stand where a group is expected. The caller
  /// owns the group.
  static CommandGroup* WrapSingleCmdIntoVirtualCmdGroup(CommandBase* command, int rank, const QString& name,
                                                        const QString& baseGroupName);

  /// Lets a slot of this group hear when a child of another group is about to run: connects the other's
  /// childToBeTriggered() to it. Two groups that listen to each other with uncheckChildren() exclude each
  /// other: at most one of them has a child that is on.
  /// @code
  /// measuring->listenToTrigger(picking, SLOT(uncheckChildren(bool)));
  /// picking->listenToTrigger(measuring, SLOT(uncheckChildren(bool)));
  /// @endcode
  /// @param slot the signature of a slot without or with a bool argument, as SLOT() gives it.
  /// @return false for null, for a slot that does not exist, and when it listens already.
  bool listenToTrigger(CommandGroup* other, const char* slot);

  /// The toolbar that shows the group, or null.
  ToolBar* toolbar() const;
  /// Not owned, and not guarded: clear it with null before the toolbar dies.
  void setToolbar(ToolBar* toolbar);
  /// The button that shows the group; null when there is none or it has died.
  ToolButton* toolButton() const;
  /// Not owned. The button shows from now on whether the group, and one of its children, is enabled and, if
  /// the button is checkable, checked, also when it is not bound to the group. The button before stays as it
  /// is.
  void setToolButton(ToolButton* button);
  /// The action group of the checkable children; exclusive unless set otherwise.
  QActionGroup* groupActionGroup() const;
  /// Whether the children are shown in a grid.
  bool isGrid() const;
  /// See isGrid().
  void setGrid(bool grid);
  /// How many children stand in a row of the grid.
  int gridSize() const;
  /// See gridSize().
  void setGridSize(int size);

public Q_SLOTS:
  bool onExecute(bool checked = false) override;
  /// Does nothing. @return true.
  bool onExecuteAsync(bool checked) override;
  /// Toggles every checked child off, in order, then unchecks the group. That they go off is not announced by
  /// childToBeTriggered().
  virtual void uncheckChildren(bool checked);
  /// Sets the group checked as told, if it is checkable. Called when a child was triggered or toggled, was
  /// added or removed: with whether one of the children is checked now.
  virtual void onChildTriggered(bool checked);
  /// A child is about to run, on being triggered or toggled: announces childToBeTriggered().
  virtual void onChildToBeTriggered(bool checked);
  /// A child looks different: brings the button up to date, which is disabled while no child is enabled.
  virtual void onChildChanged();

Q_SIGNALS:
  /// Emitted before a child runs.
  void childToBeTriggered(bool checked);
  /// A child was added, removed, or moved to another place.
  void childrenChanged();

private:
  void attachChild(CommandBase& child);
  void detachChild(CommandBase& child);
  void leaveToOtherGroups(CommandBase& child) const;
  void showChildren();
  void showOnButton();
  bool refuses(const CommandBase& command) const;
  int positionOf(int rank) const;
  std::shared_ptr<CommandBase> takeCommand(int position);

  const std::unique_ptr<CommandGroupPrivate> d;
};

} // namespace Vela::UiBase
