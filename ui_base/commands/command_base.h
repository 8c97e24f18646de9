// SPDX-License-Identifier: MIT
#pragma once

#include <tqm_mesh_kernel/quality_of_service.h>
#include <ui_base/commands/command_context.h>
#include <ui_base/commands/command_id.h>
#include <ui_base/commands/command_run.h>
#include <ui_base/commands/command_state.h>
#include <ui_base/commands/text.h>
#include <ui_base/core/command_state_protocol.h>
#include <ui_base/core/shared_object.h>
#include <ui_base/ui_base_export.h>

#include <QAction>
#include <QStringList>
#include <QVariantMap>

#include <memory>

namespace Vela::UiBase {

class BaseView;
class CmdsViewController;
class CommandBase;
class CommandBasePrivate;
class CommandGroup;

/// Which end of an execution a notification message belongs to.
enum ENotification : int {
  StartNotification = 0,
  EndNotification = 1,
};

} // namespace Vela::UiBase

extern template class UI_BASE_EXPORT Taren::Objects::SharedObject<Vela::UiBase::CommandBase>;

namespace Vela::UiBase {

/// The base of every user command: a QAction that announces CommandStateProtocol and runs its work along one
/// fixed path, at once or through the dispatcher.
///
/// Triggering a command that is not checkable, or toggling one that is, leads to onExecute(): the observers
/// hear commandBeganExecuting(), the work onExecuteAsync() runs, the observers hear commandEndedExecuting().
/// With an executionQoS() of 0 all of it happens at once on the triggering thread. With any other value the
/// work runs on a thread of the dispatcher and must not touch widgets; meanwhile the commands stand in
/// getExecutionCommandContext(), and changing workspaces is switched off. The closing steps also run when the
/// work throws or the dispatcher refuses it; what it throws is shown to the user. The work finds its run,
/// with a stop token and a progress, in CommandRun::current().
///
/// Commands are shared objects: hand a plain one to CmdMgr::addCommand() or CommandBag::addCommand(), which
/// take it into shared ownership, and delete none by hand. A command with a quality of service other than 0
/// must be shared before it is triggered.
///
/// A text that is given as Text follows the language of the program; one that is given as a string stays.
///
/// @code
/// class SmoothCommand : public CommandBase {
///   Q_OBJECT
///   COMMAND_ID(SmoothCommand)
/// public:
///   explicit SmoothCommand(CmdsViewController* controller) : CommandBase(controller) {
///     setText({staticMetaObject, QT_TR_NOOP("Smooth")});
///     setExecutionQoS(Taren::Core::NormalQoS);
///     setExecutionNotificationMessage(StartNotification, {staticMetaObject, QT_TR_NOOP("Smoothing…")});
///     enableExecutionNotification(true);
///   }
///   bool onExecuteAsync(bool) override { return smoothMesh(); }   // on a worker thread
/// };
/// @endcode
class UI_BASE_EXPORT CommandBase : public QAction,
                                   public Taren::Core::Broadcaster<CommandStateProtocol>,
                                   public virtual Taren::Objects::SharedObject<CommandBase> {
  Q_OBJECT
  /// How the command stands; see commandState() and setCommandState().
  Q_PROPERTY(Vela::UiBase::CommandState state READ commandState WRITE setCommandState NOTIFY changed)

public:
  ~CommandBase() override;

  /// The command's key in bags, contexts and look-ups. COMMAND_ID defines it.
  virtual QString commandId() const = 0;
  /// Gives the command a Qt parent. A command that is shared has its owners and takes none.
  virtual void setParent(QObject* parent);
  /// Whether the tag is one of commandTags().
  virtual bool hasTag(const QString& tag) const;
  /// Words that describe the kind of the command; none by default.
  virtual QStringList commandTags();
  /// The state in a default context: enabled, not checked.
  virtual CommandState defaultCommandState();
  /// The state of the action as it stands.
  virtual CommandState commandState();
  /// Applies a state; a part that is Keep stays, the checked part of a command that is not checkable is
  /// ignored.
  virtual void setCommandState(const CommandState& state);
  /// The controller whose view it works on, which owns neither; null takes it away.
  virtual void setViewController(CmdsViewController* controller);
  /// Where the work runs; 0, at once on the triggering thread, by default.
  virtual Taren::Core::EQualityOfService executionQoS();
  /// See executionQoS().
  virtual void setExecutionQoS(const Taren::Core::EQualityOfService& qos);
  /// Whether the view controller shows a busy cursor and the messages while the command executes; off by
  /// default.
  virtual bool isExecutionNotificationEnabled() const;
  /// See isExecutionNotificationEnabled().
  virtual void enableExecutionNotification(bool enable);
  /// The message shown at the start or the end; empty when there is none.
  virtual QString getExecutionNotificationMessage(ENotification notification) const;
  /// See getExecutionNotificationMessage().
  virtual void setExecutionNotificationMessage(ENotification notification, const QString& message);
  /// What the run that is about to begin works on beyond the state of the application: the file that the user
  /// chose, the values of a panel. None by default. Asked for at the beginning of each run, for its record;
  /// numbers, texts, truth values, files as QUrl, and lists and maps of them.
  virtual QVariantMap inputs() const;
  /// Gives the next run inputs as inputs() had them, so that it does not ask the user.
  /// @return whether they are understood; otherwise nothing has changed. By default, whether there are none.
  virtual bool setInputs(const QVariantMap& inputs);
  /// Whether the user is asked for something before a run, so that a run without inputs() cannot be done
  /// again; false by default.
  virtual bool needsInputs() const;
  /// The command's own work. Runs on the thread that executionQoS() names. What it throws is logged and
  /// shown.
  virtual bool onExecuteAsync(bool checked) = 0;
  /// Whether the command holds a command of that identifier. Groups do.
  virtual bool hasCommand(const QString& id) const;
  /// The command of that identifier inside this one, or null.
  virtual CommandBase* getCommand(const QString& id);
  /// The group that holds the command, the one it was added to last when there are several; or null.
  virtual CommandGroup* commandGroup() const;
  /// Called by groups that take the command or let it go.
  virtual void setCommandGroup(CommandGroup* group);
  /// The name of the group the command is shown in by default.
  virtual QString baseGroupName() const;
  /// See baseGroupName().
  virtual void setBaseGroupName(const QString& name);
  /// Whether the command is also shown in the groups of attachedCommandGroupNames().
  virtual bool isAttached() const;
  /// See isAttached().
  virtual void setAttached(bool attached);
  /// One more group; see isAttached().
  virtual void addAttachedCommandGroupName(const QString& name);
  /// One group less; see isAttached().
  virtual void removeAttachedCommandGroupName(const QString& name);
  /// See isAttached().
  virtual QStringList attachedCommandGroupNames() const;
  /// As attachedCommandGroupNames(), without a copy.
  virtual const QStringList& attachedCommandGroupName() const;

  using QAction::setStatusTip;
  using QAction::setText;
  using QAction::setToolTip;
  /// Shows the text in the language of the program from now on, until another text is set.
  void setText(const Text& text);
  /// The same for the tooltip.
  void setToolTip(const Text& toolTip);
  /// The same for the status tip.
  void setStatusTip(const Text& statusTip);
  /// The message is looked up when it is asked for.
  void setExecutionNotificationMessage(ENotification notification, const Text& message);
  /// What text() shows; a text of one language when it was set as a string.
  Text translatableText() const;

  /// The view of the command's controller, or null.
  BaseView* getView() const;
  /// The command's controller, or null when there is none or it has died.
  CmdsViewController* getViewController() const;
  /// The runs of the command that are under way, oldest first.
  QList<CommandRun> runs() const;
  /// Asks those runs to end early; see CommandRun::stopToken(). From any thread.
  void requestStop() const;
  /// The groups that hold the command, in the order in which it was added to them.
  QList<CommandGroup*> holdingGroups() const;
  /// Why the command cannot be used, in a sentence for the user: the first cause that CmdMgr::explain() of
  /// its controller has. Empty when it can be used.
  QString whyUnavailable() const;
  /// Whether the command asks the licence library before it runs.
  bool isPaidFeature() const;

public Q_SLOTS:
  /// Runs the command; see the class.
  /// @return what the work answered; for work that runs later, whether the dispatcher took it.
  virtual bool onExecute(bool checked = false);

protected Q_SLOTS:
  /// The action was triggered.
  virtual void onTriggered(bool checked);
  /// The action was toggled.
  virtual void onToggled(bool checked);

Q_SIGNALS:
  /// Emitted before the command deals with being toggled.
  void toBeToggled(bool checked);
  /// Emitted before the command deals with being triggered.
  void toBeTriggered(bool checked);

protected:
  /// @param controller the controller whose view the command works on; may be null.
  explicit CommandBase(CmdsViewController* controller);

  /// How the commands of the controller stand while this one works on another thread; empty, which changes
  /// nothing, by default.
  virtual CommandContext getExecutionCommandContext();
  /// The work threw. Called on the main thread after the closing steps; shows the reason over the view.
  virtual void onExecutionFailed(const QString& reason);
  /// A paid feature asks for a licence before it runs; see isPaidFeature().
  void setIsPaidFeature(bool paid);

private:
  friend class CommandExecution;
  friend class CommandGroup;

  void enterGroup(CommandGroup& group);
  void leaveGroup(const CommandGroup& group);

  const std::unique_ptr<CommandBasePrivate> d;
};

} // namespace Vela::UiBase
