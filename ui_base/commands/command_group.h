// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/commands/command_bag.h>
#include <ui_base/commands/command_base.h>

class QActionGroup;

namespace Vela::UiBase {

class CommandGroupPrivate;

/// A command that holds other commands, its children, and shows them together. It is itself checkable, so
/// that what shows the group can show whether one of its children is on.
///
/// The group shares ownership of its children. They stand in order of rank, equal ranks in order of addition.
/// Who observes the group also hears its children, those added later included. Unlike those of a single
/// command, the observers of a group are added and removed on the main thread.
///
/// @code
/// auto* shading = new CommandGroup(":/icons/shading.svg", tr("Shading"), "Shading");
/// shading->addCommand(new FlatShadingCommand(controller), 0);
/// shading->addCommand(new SmoothShadingCommand(controller), 1);
/// manager->addCommand(shading);
/// @endcode
class UI_BASE_EXPORT CommandGroup : public CommandBase {
  Q_OBJECT

public:
  /// @param iconName what the toolkit service's icon provider is asked for; may be empty.
  /// @param toolTip the tooltip.
  /// @param name the object name, from which the identifier is made.
  CommandGroup(const QString& iconName, const QString& toolTip, const QString& name);
  ~CommandGroup() override;

  /// The class name, "Vela::UiBase::CommandGroup".
  static QString className();
  /// The class name directly followed by the object name.
  QString commandId() const override;

  void setCommandState(const CommandState& state) override;
  bool onExecuteAsync(bool checked) override;
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

  virtual const CommandBag& commandBag() const;
  virtual CommandBag& commandBag();
  /// Adds a child at its rank. @return the child, or null when it is null, the group itself, or here already.
  virtual CommandBase* addCommand(const std::shared_ptr<CommandBase>& command, int rank);
  /// @overload Takes the plain pointer into shared ownership.
  virtual CommandBase* addCommand(CommandBase* command, int rank);
  /// Removes the first child of that identifier; the children of child groups are not looked at.
  virtual bool removeCommand(const QString& id);
  /// Removes that child, also when it is not the first of its identifier.
  bool removeCommand(const CommandBase* child);
  /// The group, this one or one below it, that directly holds a command of that identifier; or null.
  virtual CommandGroup* getCommandGroup(const QString& id);
  /// Takes over the children of another group, with their ranks. A child whose identifier stands here already
  /// stays behind, unless both are groups: then this one's absorbs the other's. The other group keeps what
  /// stays.
  virtual void absorbCommandGroup(CommandGroup* other);
  virtual void setEnabled(bool enabled);
  virtual void setChecked(bool checked);
  /// The rank stored for an identifier, or 0.
  virtual int getCommandRank(const QString& id) const;
  virtual void setCommandRank(const QString& id, int rank);
  /// Whether the group only wraps a single command.
  virtual bool isVirtualGroup() const;
  virtual void setVirtualGroup(bool isVirtual);
  /// The present states of the group and everything below it.
  virtual CommandContext commandContext();

  /// Makes a group around one command, so that the command can stand where a group is expected. The caller
  /// owns the group.
  static CommandGroup* WrapSingleCmdIntoVirtualCmdGroup(CommandBase* command, int rank, const QString& name,
                                                        const QString& baseGroupName);

  /// The action group of the checkable children; exclusive unless set otherwise.
  QActionGroup* groupActionGroup() const;
  bool isGrid() const;
  void setGrid(bool grid);
  /// How many children stand in a row of the grid.
  int gridSize() const;
  void setGridSize(int size);

public Q_SLOTS:
  bool onExecute(bool checked = false) override;
  /// Toggles every checked child off, then unchecks the group.
  virtual void uncheckChildren(bool checked);
  /// A child was triggered or toggled: the group shows it.
  virtual void onChildTriggered(bool checked);
  /// A child is about to run: announces childToBeTriggered().
  virtual void onChildToBeTriggered(bool checked);
  /// A child looks different. The group has nothing of its own to bring up to date; subclasses may.
  virtual void onChildChanged();

Q_SIGNALS:
  void childToBeTriggered(bool checked);

private:
  void attachChild(CommandBase& child);
  void detachChild(CommandBase& child);
  void stopObserving(CommandBase& child);
  std::shared_ptr<CommandBase> takeCommand(int position);

  const std::unique_ptr<CommandGroupPrivate> d;
};

} // namespace Vela::UiBase
