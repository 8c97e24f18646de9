// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/commands/cmd_mgr.h>
#include <ui_base/ui_base_export.h>
#include <ui_base/views/base_view_controller.h>

#include <QCoreApplication>

#include <memory>

namespace Vela::UiBase {

class CmdsViewControllerPrivate;

/// The controller of a working view: the view's controller and the manager of its commands at once. It gets
/// its commands from the application manager when its view loads, lets go of them when the view closes, and
/// shows what a command tells of its execution: a busy cursor and the start and end messages.
///
/// Its bases are virtual, one of them a QObject, so neither it nor a subclass can have Q_OBJECT, signals or
/// slots of its own, and `qobject_cast` and `findChild` do not find it. Give a subclass a helper QObject for
/// its slots, connect lambdas with the controller as context, and keep guarded pointers as
/// QPointer<BaseViewController> with a dynamic_cast. Texts are translated through Q_DECLARE_TR_FUNCTIONS.
///
/// A shared object, see BaseViewController and CmdMgr. Where both have an operation of one name,
/// shared_from_this() and getDelegate() are those of BaseViewController; setDelegate(), addObserver() and
/// removeObserver() take the observers of both.
///
/// @code
/// class MeshController : public CmdsViewController {
/// public:
///   explicit MeshController(BaseView* view) : CmdsViewController(view) {}
///   bool mouseDrop(QDropEvent* event) override { return openDropped(*event); }
/// };
/// @endcode
class UI_BASE_EXPORT CmdsViewController : public virtual BaseViewController, public virtual CmdMgr {
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
  CmdMgrProtocol* getCmdMgrDelegate() const { return CmdMgr::getDelegate(); }

  void viewDidLoad() override;
  bool viewWillClose() override;

  void commandBeganExecuting(CommandBase* command, bool checked) override;
  void commandEndedExecuting(CommandBase* command, bool checked) override;

protected:
  void viewWasLost() override;
  void commandForgotten(CommandBase& command) override;

private:
  const std::unique_ptr<CmdsViewControllerPrivate> d;
};

} // namespace Vela::UiBase
