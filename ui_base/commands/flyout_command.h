// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/commands/command_base.h>
#include <ui_base/commands/context_hold.h>

#include <functional>

class QWidget;

namespace Vela::UiBase {

class FlyoutBase;
class FlyoutCommandPrivate;

/// A command whose work is done through a panel: beginning it shows the panel and puts the commands into the
/// command's own context, applying runs the work, any number of times, closing the panel ends the command and
/// brings the context before back.
///
/// The panel is a FlyoutBase, with which the command is wired, or any other widget, a simple flyout, which is
/// only shown and hidden and leaves the contexts alone. It is not owned. A checkable flyout command begins on
/// being checked and ends on being unchecked.
///
/// The work runs on a worker thread (quality of service 2); the flyout is busy meanwhile. Begin and end are
/// balanced: while the command has begun it does not begin again, and it ends once. Removing the command from
/// its manager ends it.
///
/// @code
/// class SmoothCommand : public FlyoutCommand {
///   Q_OBJECT
///   COMMAND_ID(SmoothCommand)
/// public:
///   SmoothCommand(FlyoutBase* flyout, MeshController* controller) : FlyoutCommand(flyout, controller) {}
///   bool onExecuteAsync(bool) override { return smoothMesh(); }   // Apply was pressed
/// };
/// @endcode
class UI_BASE_EXPORT FlyoutCommand : public CommandBase {
  Q_OBJECT

public:
  ~FlyoutCommand() override;

  /// The panel if it is a FlyoutBase, else null. Makes it, where that is still to be done, on the main thread
  /// only.
  virtual FlyoutBase* flyout() const;
  /// The panel as it was given or made; null once it has died.
  virtual QWidget* simpleFlyout() const;
  /// Whether the panel is no FlyoutBase.
  virtual bool isSimpleFlyout() const;
  /// Whether the command has begun and not ended.
  virtual bool isActive() const;

  /// String::TAG_FLYOUT().
  QStringList commandTags() override;
  bool event(QEvent* event) override;
  bool onExecute(bool checked = false) override;

public Q_SLOTS:
  /// Begins the command, if it has not begun: pushes getBeginCommandContext(), announces commandBegan(), and
  /// has the button of the flyout open it, or shows a panel that has none.
  virtual void onBegin();
  /// Ends the command, if it has begun: brings the contexts back, announces commandEnded(), and closes the
  /// panel; one that a button hosts when the event loop turns next, unless the button has.
  virtual void onFinalize();
  /// The user wants the values reset. Does nothing by default.
  virtual void onReset();
  /// Closes the panel and so ends the command, if it is active and its panel visible.
  virtual void onExitCommand();
  /// Escape was pressed in the flyout, which cancels by itself. Does nothing by default.
  virtual void onESCKeyReleased();

protected:
  /// @param panel what the command is worked with; may be null.
  FlyoutCommand(QWidget* panel, CmdsViewController* viewController);
  /// For a panel that is made when something first asks for it, a button that hosts it or the beginning of
  /// the command: a program starts without panels that nobody has seen.
  /// @param makeFlyout called at most once, on the main thread, and not in the destructor; it does not throw.
  /// The command does not own the flyout.
  FlyoutCommand(std::function<FlyoutBase*()> makeFlyout, CmdsViewController* viewController);

  /// How the commands stand while this one is open; empty, which changes nothing, by default. What it says of
  /// the command itself is left out: its panel shall be used, and closed.
  virtual CommandContext getBeginCommandContext();
  /// Whether an execution that was asked for may run; true by default.
  virtual bool onBeforeExecute();
  /// See isActive(); tells nobody.
  void setIsActive(bool active);

protected Q_SLOTS:
  void onTriggered(bool checked) override;
  void onToggled(bool checked) override;

private:
  FlyoutBase* madeFlyout() const;
  void makePanel();
  void setPanel(QWidget* panel);
  void connectFlyout(FlyoutBase& panel);
  void showEnabled();
  void holdBeginContext(ContextHold& hold);
  void tell(void (CommandStateProtocol::*what)(CommandBase*), const std::shared_ptr<const bool>& unless = {});
  void open();
  void close();

  const std::unique_ptr<FlyoutCommandPrivate> d;
};

} // namespace Vela::UiBase
