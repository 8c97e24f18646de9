// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/commands/command_bag.h>
#include <ui_base/commands/command_context.h>
#include <ui_base/commands/context_hold.h>
#include <ui_base/commands/context_layer.h>
#include <ui_base/commands/explain.h>
#include <ui_base/core/cmd_mgr_protocol.h>
#include <ui_base/core/command_state_protocol.h>
#include <ui_base/core/shared_object.h>
#include <ui_base/ui_base_export.h>

#include <QList>

#include <memory>
#include <vector>

namespace Vela::UiBase {

class CmdMgr;
class CmdMgrPrivate;
class CommandBase;
class PendingContext;

} // namespace Vela::UiBase

extern template class UI_BASE_EXPORT Taren::Objects::SharedObject<Vela::UiBase::CmdMgr>;

namespace Vela::UiBase {

/// Holds the commands of a view, finds them by identifier, switches many of them at once by contexts, which
/// it keeps on a stack, and knows which one is running.
///
/// A shared object: make it with Taren::Objects::createShared<CmdMgr>(). It shares ownership of its commands
/// and observes each of them synchronously. For the main thread; present states may be asked for from any
/// thread, which then waits for the main thread.
///
/// Contexts are applied later, by a task of the main thread. A context handed over but not yet applied counts
/// as applied for what a following pushContext() saves.
///
/// Contexts that are pushed lie over one another as layers. Who pushes one for a while takes a hold on it, as
/// running commands and open flyouts do: holds are released in any order, and each undoes just what its
/// layer names, so that what the user chose meanwhile stays. A command that is added while layers stand comes
/// under them too.
///
/// @code
/// auto manager = Taren::Objects::createShared<CmdMgr>();
/// manager->addCommand(new OpenCommand(controller));
/// {
///   const ContextHold hold = manager->holdContext(manager->disabledContext());   // everything disabled…
/// }                                                                              // …and as it was
/// @endcode
class UI_BASE_EXPORT CmdMgr : public Taren::Core::Delegator<CmdMgrProtocol>,
                              public CommandStateProtocol,
                              public virtual Taren::Objects::SharedObject<CmdMgr> {
public:
  CmdMgr();
  ~CmdMgr() override;

  /// Adds a command, which the manager takes into shared ownership. A group whose identifier is taken by a
  /// group is absorbed by that one, and dies unless somebody else holds it; a new group takes in the
  /// top-level commands that it contains.
  /// @return the command that now stands under the identifier, for an absorbed group the one that absorbed
  /// it; null for null, and for a command (no group) that stood there already.
  /// @throws std::logic_error when the identifier is empty, std::bad_weak_ptr when the manager is not shared.
  CommandBase* addCommand(CommandBase* command);
  /// Removes a command, at the top level and from the groups here. What is begun of it ends, while it is
  /// still observed; then the delegate is told its identifier.
  /// @return false when it is not here.
  bool removeCommand(const QString& id);
  /// @return whether it was there. The command lives on where somebody else holds it.
  bool removeCommand(CommandBase* command);
  /// Removes all, groups included.
  void removeAllCommands();
  /// The command of that identifier, at the top level or else inside a group; or null. Costs one hash
  /// look-up, however many groups there are. A group that overrides CommandBase::getCommand() is asked for
  /// identifiers that stand in no bag.
  CommandBase* findCommand(const QString& id) const;
  /// The command of a class, by the identifier that the class gives its commands or another; null when there
  /// is none, or when it is of another class.
  /// @code
  /// if (auto* smooth = manager->findCommand<SmoothMeshCommand>())
  ///   smooth->setIterations(5);
  /// @endcode
  template <class Command>
  Command* findCommand(const QString& id = Command::className()) const {
    return dynamic_cast<Command*>(findCommand(id));
  }
  /// All commands of that identifier in a bag (null: the top level), those in its groups left out.
  QVector<CommandBase*> findCommands(const QString& id, CommandBag* bag = nullptr) const;

  void commandBegan(CommandBase* command) override;
  void commandEnded(CommandBase* command) override;
  /// The command between commandBegan() and commandEnded(); empty when there is none.
  std::shared_ptr<CommandBase> runningCommand() const;

  /// The contexts below cover the commands of a bag (null: the top level), those inside its groups included.
  /// With an identifier they cover the bag of that group, or that single command; nothing when it names none.

  /// Each command in its default state.
  CommandContext defaultContext(CommandBag* bag = nullptr) const;
  /// Each command disabled, checked left as it is.
  CommandContext disabledContext(CommandBag* bag = nullptr) const;
  /// The same for the bag of a group or a single command; nothing when @p id names none.
  CommandContext disabledContext(const QString& id) const;
  /// Each command unchecked, enabled left as it is.
  CommandContext inactiveContext(CommandBag* bag = nullptr) const;
  /// The same for the bag of a group or a single command; nothing when @p id names none.
  CommandContext inactiveContext(const QString& id) const;
  /// The present states.
  CommandContext currentContext(CommandBag* bag = nullptr) const;
  /// The same for the bag of a group or a single command; nothing when @p id names none.
  CommandContext currentContext(const QString& id) const;
  /// The present states of those commands of a context that are here.
  CommandContext currentContext(const CommandContext& context) const;
  /// The present states of the commands that are checked.
  CommandContext currentActiveContext(CommandBag* bag = nullptr) const;
  /// The same for the bag of a group or a single command; nothing when @p id names none.
  CommandContext currentActiveContext(const QString& id) const;

  /// Applies a context, later; identifiers that name no command are passed over.
  /// @throws std::bad_weak_ptr when the manager is not shared.
  void setContext(const CommandContext& context);
  /// Saves the present states on the stack, then applies the context. From any thread, which waits for the
  /// main thread.
  /// @throws std::bad_weak_ptr when the manager is not shared.
  void pushContext(const CommandContext& context);
  /// Ends the topmost layer that nobody holds: on top, by applying all that it saved; below, like a hold that
  /// is released. Where all are held it ends the top one, and with it its hold. Does nothing when the stack
  /// is empty.
  void popContext();
  /// Like pushContext(), with a hold: releasing it undoes what the context has brought, in whatever order
  /// layers end. The checked part of a command that holds is its own from now on, and not restored.
  /// @throws std::bad_weak_ptr when the manager is not shared.
  ContextHold holdContext(const CommandContext& context, const ContextHolder& holder = {});
  /// Empties the stack, which ends all holds, and applies the default context.
  void resetContext();
  /// Replaces a command's state in the saved contexts, from the bottom up to the first that does not hold it.
  void updateContextInStack(const QString& id, const CommandState& state);
  /// What each push saved, the first one first.
  const QList<CommandContext>& contextStack() const;
  /// The layers of contexts, the lowest first: for a developer's view of why commands stand as they do.
  QList<ContextLayer> layers() const;

  /// Sets a command's state below all layers, as if they had found it so: it shows at once where no layer
  /// names it, else when those that do have ended. A part that is Keep stays. This is the way to set a state
  /// that shall last while commands run or end, in commandEndedExecuting() for instance: a state set directly
  /// there is undone by the layer that is just ending.
  /// @param reason why the command is disabled, for the user; forgotten when it is enabled here.
  void setGroundState(const QString& id, const CommandState& state, const QString& reason = {});
  /// A command's state as it would be without the layers.
  CommandState groundState(const QString& id) const;
  /// The reason given with setGroundState(), if any.
  QString groundReason(const QString& id) const;
  /// Who disables a command by a layer, the topmost first; empty when no layer does.
  QList<ContextHolder> holdersDisabling(const QString& id) const;

  /// All causes for which a command cannot be used, with a sentence for the user each: the layers that
  /// disable it, the topmost first, the command's own state, its groups, the licence, the application. Goes
  /// by the layers as they are handed over, applied or not. Empty for a command that can be used, and for
  /// none.
  QList<CommandCause> explain(const QString& id) const;

  /// Whether a context is being applied just now.
  bool isApplyingContext() const;

  /// All commands, to read.
  const CommandBag& commandBag() const;

protected:
  /// All commands. Add and remove by the manager, which tells its observers.
  CommandBag& commandBag();
  /// A command was removed and is not observed any more; called for the commands inside a group too.
  virtual void commandForgotten(CommandBase& command);
  /// Ends the flyouts that are open and lets go of all commands; the first thing that a destructor does,
  /// while commands can still ask what they belong to.
  void dropCommands();

private:
  friend class ContextHold;
  friend class GroupObservers;
  using StateOf = CommandState (*)(CommandBase&);

  std::shared_ptr<CommandBase> addGroup(const std::shared_ptr<CommandBase>& command);
  void takeIn(const CommandBag& children, const CommandGroup* registered);
  void observe(CommandBase& command);
  bool takeOut(CommandBase& command);
  void letGo(CommandBase& command);
  void tellRemoved(const QString& id);
  bool stands(const CommandBase& command) const;
  std::shared_ptr<CommandBase> findShared(const QString& id) const;
  CommandContext contextOf(const QString& id, StateOf stateOf) const;
  CommandContext presentContext() const;
  CommandContext statesBeside(const CommandContext& present, const CommandContext& asked) const;
  quint64 pushLayer(const CommandContext& context, const ContextHolder& holder, bool isHeld);
  void releaseLayer(quint64 layer);
  bool hasLayer(quint64 layer) const;
  void childArrived(CommandBase& child);
  std::vector<std::weak_ptr<CommandBase>> newcomersIn(CommandBase& command) const;
  void bringUnderLayers(const std::vector<std::weak_ptr<CommandBase>>& newcomers);
  void layOverArrived();
  void applyPending(const std::shared_ptr<PendingContext>& pending);
  void keepPendingCommands();

  const std::unique_ptr<CmdMgrPrivate> d;
};

} // namespace Vela::UiBase
