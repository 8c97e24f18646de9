// SPDX-License-Identifier: MIT
#include "flyout_command.h"

#include "call_failure.h"
#include "cmd_mgr.h"
#include "command_ref.h"
#include "upstairs.h"

#include <tqm_mesh_kernel/dispatch.h>
#include <ui_base/popups/flyout_base.h>
#include <ui_base/popups/flyout_host.h>
#include <vlk_common_res/strings.h>
#include <vlk_license/license_service.h>

#include <QApplication>
#include <QEvent>

#include <utility>

namespace Vela::UiBase {

namespace {

using License::LicenseService;

/// Makes a flyout busy while its command executes.
class BusyFlyout : public CommandStateProtocol {
public:
  void setFlyout(FlyoutBase* flyout) {
    m_flyout = flyout;
    if (m_busy) // it was made meanwhile
      setBusy(true);
  }

  void commandBeganExecuting(CommandBase*, bool) override { setBusy(true); }
  void commandEndedExecuting(CommandBase*, bool) override { setBusy(false); }

private:
  void setBusy(bool busy) {
    m_busy = busy;
    if (m_flyout)
      m_flyout->SetBusy(busy);
  }

  QPointer<FlyoutBase> m_flyout;
  bool m_busy = false;
};

FlyoutHost* hostOf(const FlyoutBase* flyout) {
  return flyout ? dynamic_cast<FlyoutHost*>(flyout->ToolButton()) : nullptr;
}

} // namespace

class FlyoutCommandPrivate {
public:
  // From begin to end.
  struct Session {
    ContextHold hold; // on the context of the beginning
    bool isTold = false;
    bool isBeingTold = false;
    bool isInterrupted = false; // ended by one of those that are told of its beginning
  };

  QPointer<QWidget> panel;
  std::function<FlyoutBase*()> makePanel; // until it is made
  bool active = false;
  std::shared_ptr<Session> session;
  struct {
    QPointer<QWidget> before; // when the panel was disabled, in it
    QPointer<QWidget> since;
  } focus;
  const std::shared_ptr<BusyFlyout> busyFlyout = std::make_shared<BusyFlyout>();
};

FlyoutCommand::FlyoutCommand(QWidget* panel, CmdsViewController* viewController)
    : CommandBase(viewController), d(std::make_unique<FlyoutCommandPrivate>()) {
  enableExecutionNotification(true);
  setExecutionQoS(Taren::Core::NormalQoS);
  addObserver(d->busyFlyout, false);
  setPanel(panel);
}

FlyoutCommand::FlyoutCommand(std::function<FlyoutBase*()> makeFlyout, CmdsViewController* viewController)
    : FlyoutCommand(nullptr, viewController) {
  d->makePanel = std::move(makeFlyout);
}

// Once. What makes it may let go of the command.
void FlyoutCommand::makePanel() {
  const CommandRef self(*this);
  FlyoutBase* const panel = std::exchange(d->makePanel, nullptr)();
  if (self.get())
    setPanel(panel);
  if (self.get())
    showEnabled();
}

void FlyoutCommand::setPanel(QWidget* panel) {
  d->panel = panel;
  if (panel)
    connect(panel, &QObject::destroyed, this, [this] {
      d->panel.clear(); // whoever is told may begin it again
      onFinalize();
    });
  if (auto* const flyoutPanel = qobject_cast<FlyoutBase*>(panel))
    connectFlyout(*flyoutPanel);
}

FlyoutCommand::~FlyoutCommand() {
  beginDestruction();
  if (const auto ended = std::exchange(d->session, nullptr)) {
    ended->hold.release();
    close(); // nobody could do so any more
  }
}

// By signature: what a flyout offers is known by the names of its signals alone.
void FlyoutCommand::connectFlyout(FlyoutBase& panel) {
  connect(&panel, SIGNAL(ApplyChanges()), this, SLOT(onExecute()));
  connect(&panel, SIGNAL(CloseFlyout()), this, SLOT(onFinalize()));
  connect(&panel, SIGNAL(ESCKeyReleased()), this, SLOT(onESCKeyReleased()));
  if (panel.IsResetButtonEnabled()) {
    const QWidget* const main = panel.MainPanel();
    if (main && main->metaObject()->indexOfSignal("ResetValues()") >= 0)
      connect(&panel, SIGNAL(ResetValues()), main, SIGNAL(ResetValues()));
    connect(&panel, SIGNAL(ResetValues()), this, SLOT(onReset()));
  }
  d->busyFlyout->setFlyout(&panel);
}

FlyoutBase* FlyoutCommand::flyout() const { return qobject_cast<FlyoutBase*>(FlyoutCommand::simpleFlyout()); }

// A run may ask on its worker.
QWidget* FlyoutCommand::simpleFlyout() const {
  if (!d->makePanel || !Taren::Core::isMainThread())
    return d->panel;
  auto& self = const_cast<FlyoutCommand&>(*this);
  const CommandRef alive(self);
  self.makePanel();
  return alive.get() ? d->panel.data() : nullptr;
}

/// The flyout, unless it is still to be made.
FlyoutBase* FlyoutCommand::madeFlyout() const { return d->makePanel ? nullptr : flyout(); }

bool FlyoutCommand::isSimpleFlyout() const { return !flyout(); }

bool FlyoutCommand::isActive() const { return d->active; }

void FlyoutCommand::setIsActive(bool active) { d->active = active; }

QStringList FlyoutCommand::commandTags() { return {Resource::String::TAG_FLYOUT()}; }

bool FlyoutCommand::event(QEvent* event) {
  if (event->type() == QEvent::ActionChanged)
    showEnabled();
  return CommandBase::event(event);
}

// A panel that is disabled for a while, by its own run for instance, has the focus again afterwards, unless
// the user has put it elsewhere.
void FlyoutCommand::showEnabled() {
  FlyoutBase* const panel = madeFlyout();
  if (!panel)
    return;
  const CommandRef self(*this);
  const QPointer<QWidget> focus = QApplication::focusWidget();
  const bool takesFocus = !isEnabled() && focus && (focus == panel || panel->isAncestorOf(focus));
  panel->setEnabled(isEnabled());
  if (!self.get())
    return;
  if (takesFocus) {
    d->focus = {focus, QApplication::focusWidget()};
  } else if (isEnabled()) {
    const auto [before, since] = std::exchange(d->focus, {});
    if (before && before->isVisible() && QApplication::focusWidget() == since)
      before->setFocus();
  }
}

void FlyoutCommand::onTriggered(bool checked) {
  if (isCheckable())
    return;
  const CommandRef self(*this);
  if (isPaidFeature() && !LicenseService::Instance().isUsable()) {
    LicenseService::Instance().showLicenseDialog(Upstairs::asWidget(getView()));
    return;
  }
  Q_EMIT toBeTriggered(checked);
  if (self.get())
    onBegin();
}

void FlyoutCommand::onToggled(bool checked) {
  if (!isCheckable())
    return;
  const CommandRef self(*this);
  Q_EMIT toBeToggled(checked);
  if (!self.get())
    return;
  if (checked)
    onBegin();
  else
    onFinalize();
}

bool FlyoutCommand::onExecute(bool checked) { return onBeforeExecute() && CommandBase::onExecute(checked); }

void FlyoutCommand::onBegin() {
  if (d->session)
    return;
  const CommandRef self(*this);
  const auto session = std::make_shared<FlyoutCommandPrivate::Session>();
  d->session = session;
  setIsActive(true);
  const auto contextFailure = failureOf([&] { holdBeginContext(session->hold); });
  if (self.get() && d->session == session && contextFailure) {
    onFinalize();
    if (self.get())
      onExecutionFailed(*contextFailure);
    return;
  }
  if (self.get() && d->session == session) {
    session->isTold = session->isBeingTold = true;
    // Who has heard of the end shall not hear of the beginning after it.
    tell(&CommandStateProtocol::commandBegan, {session, &session->isInterrupted});
    session->isBeingTold = false;
  }
  if (self.get() && d->session == session)
    open();
}

void FlyoutCommand::holdBeginContext(ContextHold& hold) {
  if (isSimpleFlyout() || !getViewController())
    return;
  const CommandRef self(*this);
  const auto session = d->session;
  CommandContext context = getBeginCommandContext();
  if (!self.get() || d->session != session)
    return;
  const QString id = commandId();
  if (context.contains(id)) // or its own panel could not be used
    context.overwrite(id, {State::Keep, State::Keep});
  if (CmdMgr* const manager = Upstairs::managerOf(getViewController()); manager && manager->isShared())
    hold = manager->holdContext(context, ContextHolder::open(id));
}

void FlyoutCommand::tell(void (CommandStateProtocol::*what)(CommandBase*),
                         const std::shared_ptr<const bool>& unless) {
  const CommandRef self(*this);
  const auto failure = failureOfTelling(*this, [ref = self, what, unless](CommandStateProtocol& observer) {
    CommandBase* const command = ref.get();
    if (command && !(unless && *unless))
      (observer.*what)(command);
  });
  if (self.get() && failure)
    onExecutionFailed(*failure);
}

void FlyoutCommand::open() {
  if (FlyoutHost* const host = hostOf(flyout())) {
    if (!host->ClickedHandlerRequested())
      host->RequestClick();
  } else if (d->panel) {
    d->panel->show();
  }
}

void FlyoutCommand::onFinalize() {
  if (!d->session)
    return;
  const CommandRef self(*this);
  const auto ended = std::exchange(d->session, nullptr);
  setIsActive(false);
  ended->hold.release();
  ended->isInterrupted = ended->isBeingTold;
  if (ended->isTold)
    tell(&CommandStateProtocol::commandEnded);
  if (self.get() && !d->session && isCheckable() && isChecked())
    setChecked(false); // it was closed from the panel
  if (self.get() && !d->session)
    close();
}

void FlyoutCommand::close() {
  FlyoutBase* const flyoutPanel = madeFlyout();
  if (hostOf(flyoutPanel)) {
    // As a rule the host is just closing it. Where the command was ended by itself, or dies, nobody else
    // does.
    const auto closeIfLeftOpen = [flyoutPanel, self = QPointer<FlyoutCommand>(this)] {
      if (flyoutPanel->isVisible() && !(self && self->d->session))
        flyoutPanel->CloseMe();
    };
    QMetaObject::invokeMethod(flyoutPanel, closeIfLeftOpen, Qt::QueuedConnection);
    return;
  }
  const QPointer<QWidget> panel(d->panel);
  if (flyoutPanel)
    flyoutPanel->CloseMe(); // tells whoever hosts it
  if (panel)
    panel->hide();
}

void FlyoutCommand::onReset() {}

void FlyoutCommand::onExitCommand() {
  if (!d->panel || !isActive() || !d->panel->isVisible())
    return;
  if (FlyoutBase* const panel = flyout()) {
    panel->CloseMe();
    return;
  }
  d->panel->setVisible(false);
  onFinalize();
}

void FlyoutCommand::onESCKeyReleased() {}

CommandContext FlyoutCommand::getBeginCommandContext() { return {}; }

bool FlyoutCommand::onBeforeExecute() { return true; }

} // namespace Vela::UiBase
