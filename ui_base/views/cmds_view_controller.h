// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/commands/cmd_mgr.h>
#include <ui_base/tools/mouse_press.h>
#include <ui_base/tools/tool_stack.h>
#include <ui_base/ui_base_export.h>
#include <ui_base/views/base_view_controller.h>

#include <QCoreApplication>

#include <memory>

namespace Vela::UiBase {

class CmdsViewControllerPrivate;
class CommandGroup;

/// The controller of a working view: the view's controller, the stack of its interactive tools, and the
/// manager of its commands at once.
///
/// Input. Every event of the view is offered first to the command that is executing, if it is a
/// ViewResponder, then to a tool, and otherwise declined, so that the view has it:
/// - a press goes to the tool of its button, and ends the operation of another one. A press of the right
/// button
///   is held back until the mouse moves with the button held: a right drag reaches the right tool, a right
///   click reaches rightClick();
/// - moves and releases go to the tool that operates, moves otherwise to the tool of the button that is held;
/// - the wheel goes to the LeftButton tool, then to the NoButton tool, and to none while another one
/// operates;
/// - keys go to the LeftButton tool.
///
/// An operation never outlives its mouse. It ends when the view loses the focus, is hidden or closes, when
/// its window is deactivated or blocked by a dialog, when the mouse comes back without its button, and before
/// its tool is popped or pushed over. The cursor of the view follows the tools.
///
/// Commands. It gets its commands from the application manager when its view loads, lets go of them when the
/// view closes, and shows what a command tells of its execution: a busy cursor, the start and end messages,
/// and, for work that takes a moment and tells its progress or can be stopped, a bar and a Cancel button; see
/// CommandRun.
///
/// Its bases are virtual, one of them a QObject, so neither it nor a subclass can have Q_OBJECT, signals or
/// slots of its own, and `qobject_cast` and `findChild` do not find it. Give a subclass a helper QObject for
/// its slots, connect lambdas with the controller as context, and keep guarded pointers as
/// QPointer<BaseViewController> with a dynamic_cast. Texts are translated through Q_DECLARE_TR_FUNCTIONS.
///
/// A shared object, see BaseViewController, ToolStack and CmdMgr. Where several have an operation of one
/// name, shared_from_this() and getDelegate() are those of BaseViewController; setDelegate(), addObserver()
/// and removeObserver() take the observers of both BaseViewController and CmdMgr.
///
/// @code
/// class MeshController : public CmdsViewController {
/// public:
///   explicit MeshController(MeshView* view) : CmdsViewController(view) {
///     pushTool(LeftButton, std::make_shared<PickTool>(view));
///     pushTool(RightButton, std::make_shared<OrbitTool>(view));
///     pushTool(NoButton, std::make_shared<ZoomTool>(view));
///   }
///   bool mouseDrop(QDropEvent* event) override { return openDropped(*event); }
/// };
/// @endcode
class UI_BASE_EXPORT CmdsViewController : public virtual BaseViewController,
                                          public virtual ToolStack,
                                          public virtual CmdMgr {
  Q_DECLARE_TR_FUNCTIONS(Vela::UiBase::CmdsViewController)

public:
  CmdsViewController();
  /// Attaches the controller to the view, which becomes its owner.
  explicit CmdsViewController(BaseView* view);
  ~CmdsViewController() override;

  using BaseViewController::addObserver;
  using BaseViewController::getDelegate;
  using BaseViewController::removeObserver;
  using BaseViewController::setDelegate;
  using BaseViewController::shared_from_this;
  using BaseViewController::sharedOrEmpty;
  using CmdMgr::addObserver;
  using CmdMgr::removeObserver;
  using CmdMgr::setDelegate;
  /// The delegate of the commands; two bases have one.
  CmdMgrProtocol* getCmdMgrDelegate() const { return CmdMgr::getDelegate(); }

  /// @name The groups in which the view's commands are shown
  /// The controller holds them as long as it lives; what shows them, and whether they are added to the
  /// manager, is up to the application.
  /// @{

  /// The group that the action panel shows; owned by the controller.
  CommandGroup* ActionPanelGroup() const;
  /// The group that comes and goes with what is selected; owned by the controller.
  CommandGroup* DynamicToolPanelGroup() const;
  /// Several of its commands can be checked at once.
  CommandGroup* ToolPanelGroup() const;
  /// @}

  /// How long a run takes, in milliseconds, before a notification shows its progress and offers to cancel it;
  /// 250 by default.
  int runNoticeDelay() const;
  /// See runNoticeDelay().
  void setRunNoticeDelay(int milliseconds);

  void viewDidLoad() override;
  void viewWillDisappear() override;
  bool viewWillClose() override;

  bool mouseDoubleClick(QMouseEvent* event) override;
  bool mouseMove(QMouseEvent* event) override;
  bool mousePress(QMouseEvent* event) override;
  bool mouseRelease(QMouseEvent* event) override;
  bool mouseWheel(QWheelEvent* event) override;
  bool mouseEnter(QEvent* event) override;
  bool mouseLeave(QEvent* event) override;
  bool mouseDragEnter(QDragEnterEvent* event) override;
  bool mouseDragLeave(QDragLeaveEvent* event) override;
  bool mouseDragMove(QDragMoveEvent* event) override;
  bool mouseDrop(QDropEvent* event) override;
  bool keyPress(QKeyEvent* event) override;
  bool keyRelease(QKeyEvent* event) override;

  void clearTools() override;
  /// Ends the operation of the tool pushed over. While a tool of another button operates, a LeftButton tool
  /// waits suspended for its end. Does nothing for a tool that this or another stack holds already.
  void pushTool(EToolActivationButton button, std::shared_ptr<InteractiveTool> tool) override;
  /// Ends the operation of the tool popped, which is inactive then.
  std::shared_ptr<InteractiveTool> popTool(EToolActivationButton button) override;
  /// Ends the operation that is going on, if any, and forgets a right press that is held back.
  void endRunningOperation();

  void toolActivated(InteractiveTool* tool) override;
  void toolDeactivated(InteractiveTool* tool) override;
  void toolBeganOperating(InteractiveTool* tool) override;
  void toolEndedOperating(InteractiveTool* tool) override;
  void toolSuspended(InteractiveTool* tool) override;
  void toolResumed(InteractiveTool* tool) override;
  void toolCursorChange(InteractiveTool* tool) override;

  void commandBegan(CommandBase* command) override;
  void commandEnded(CommandBase* command) override;
  void commandBeganExecuting(CommandBase* command, bool checked) override;
  void commandEndedExecuting(CommandBase* command, bool checked) override;

protected:
  /// The right button was pressed and released without a drag: the place for the view's menu. @p release is
  /// the release. Declines by default.
  virtual bool rightClick(QMouseEvent* release);

  void viewWasLost() override;
  void commandForgotten(CommandBase& command) override;
  void idleCursorChanged(InteractiveTool& tool) override;

private:
  void viewChanged(bool inReach) override;
  void mouseWasLost() override;
  template <class Event>
  bool offerToCommand(bool (ViewResponder::*handler)(Event*), Event* event);
  std::shared_ptr<InteractiveTool> toolOfHeldButton(const QMouseEvent& event);
  MousePress takeRightPress();
  static void endOperation(const std::shared_ptr<InteractiveTool>& tool);
  static void endLostOperation(const std::shared_ptr<InteractiveTool>& tool, const QMouseEvent& event);
  static void bringToRest(const std::shared_ptr<InteractiveTool>& tool);
  bool mayTake(const InteractiveTool& tool) const;
  void keepToolsWaiting();
  void releaseTools();
  bool isPrimary(const InteractiveTool* tool);
  void showIdleCursor(const InteractiveTool* tool);
  void takeIdleCursorAway(const InteractiveTool* tool);

  const std::unique_ptr<CmdsViewControllerPrivate> d;
};

} // namespace Vela::UiBase
