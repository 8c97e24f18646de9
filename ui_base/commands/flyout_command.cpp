// SPDX-License-Identifier: MIT
#include "flyout_command.h"

#include "cmd_mgr.h"
#include "command_ref.h"
#include "upstairs.h"

#include <ui_base/popups/flyout_base.h>
#include <ui_base/popups/flyout_host.h>
#include <vlk_common_res/strings.h>
#include <vlk_license/license_service.h>

#include <QEvent>

#include <utility>

namespace Vela::UiBase {

namespace {

using License::LicenseService;

/// Makes a flyout busy while its command executes.
class BusyFlyout : public CommandStateProtocol {
public:
  explicit BusyFlyout(FlyoutBase* flyout) : m_flyout(flyout) {}

  void commandBeganExecuting(CommandBase*, bool) override { setBusy(true); }
  void commandEndedExecuting(CommandBase*, bool) override { setBusy(false); }

private:
  void setBusy(bool busy) const {
    if (m_flyout)
      m_flyout->SetBusy(busy);
  }

  const QPointer<FlyoutBase> m_flyout;
};

FlyoutHost* hostOf(const FlyoutBase* flyout) {
  return flyout ? dynamic_cast<FlyoutHost*>(flyout->ToolButton()) : nullptr;
}

} // namespace

class FlyoutCommandPrivate {
public:
  QPointer<QWidget> panel;
  bool active = false;
  bool begun = false;
  std::weak_ptr<CmdMgr> pushedOn; // the manager that has the context of the beginning
  std::shared_ptr<BusyFlyout> busyFlyout;
};

FlyoutCommand::FlyoutCommand(QWidget* panel, CmdsViewController* viewController)
    : CommandBase(viewController), d(std::make_unique<FlyoutCommandPrivate>()) {
  d->panel = panel;
  enableExecutionNotification(true);
  setExecutionQoS(Taren::Core::NormalQoS);
  if (panel)
    connect(panel, &QObject::destroyed, this, &FlyoutCommand::onFinalize);
  if (const auto* const flyoutPanel = qobject_cast<FlyoutBase*>(panel))
    connectFlyout(*flyoutPanel);
}

FlyoutCommand::~FlyoutCommand() {
  beginDestruction();
  if (const auto manager = d->pushedOn.lock())
    manager->popContext();
}

// By signature: what a flyout offers is known by the names of its signals alone.
void FlyoutCommand::connectFlyout(const FlyoutBase& panel) {
  connect(&panel, SIGNAL(ApplyChanges()), this, SLOT(onExecute()));
  connect(&panel, SIGNAL(CloseFlyout()), this, SLOT(onFinalize()));
  connect(&panel, SIGNAL(ESCKeyReleased()), this, SLOT(onESCKeyReleased()));
  if (panel.IsResetButtonEnabled()) {
    const QWidget* const main = panel.MainPanel();
    if (main && main->metaObject()->indexOfSignal("ResetValues()") >= 0)
      connect(&panel, SIGNAL(ResetValues()), main, SIGNAL(ResetValues()));
    connect(&panel, SIGNAL(ResetValues()), this, SLOT(onReset()));
  }
  d->busyFlyout = std::make_shared<BusyFlyout>(const_cast<FlyoutBase*>(&panel));
  addObserver(d->busyFlyout, false);
}

FlyoutBase* FlyoutCommand::flyout() const { return qobject_cast<FlyoutBase*>(d->panel.data()); }

QWidget* FlyoutCommand::simpleFlyout() const { return d->panel; }

bool FlyoutCommand::isSimpleFlyout() const { return !flyout(); }

bool FlyoutCommand::isActive() const { return d->active; }

void FlyoutCommand::setIsActive(bool active) { d->active = active; }

QStringList FlyoutCommand::commandTags() { return {Resource::String::TAG_FLYOUT()}; }

bool FlyoutCommand::event(QEvent* event) {
  if (event->type() == QEvent::ActionChanged) {
    if (FlyoutBase* const panel = flyout())
      panel->setEnabled(isEnabled());
  }
  return CommandBase::event(event);
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
  if (std::exchange(d->begun, true))
    return;
  const CommandRef self(*this);
  setIsActive(true);
  pushBeginContext();
  broadcast([this, ref = sharedOrEmpty()](CommandStateProtocol* observer) { observer->commandBegan(this); });
  if (!self.get() || !d->begun)
    return;
  if (FlyoutHost* const host = hostOf(flyout())) {
    if (!host->ClickedHandlerRequested())
      host->RequestClick();
  } else if (d->panel) {
    d->panel->show();
  }
}

void FlyoutCommand::pushBeginContext() {
  CmdMgr* const manager = Upstairs::managerOf(getViewController());
  if (!manager || isSimpleFlyout())
    return;
  manager->pushContext(getBeginCommandContext());
  d->pushedOn = manager->shared_from_this();
  if (!isCheckable() || manager->contextStack().isEmpty())
    return;
  // What was saved has the command checked already; bringing that back would begin it again.
  CommandState before = manager->contextStack().constLast()[commandId()];
  before.checked.overwrite(State::Off);
  manager->updateContextInStack(commandId(), before);
}

void FlyoutCommand::onFinalize() {
  if (!std::exchange(d->begun, false))
    return;
  const CommandRef self(*this);
  setIsActive(false);
  if (const auto manager = std::exchange(d->pushedOn, {}).lock())
    manager->popContext();
  broadcast([this, ref = sharedOrEmpty()](CommandStateProtocol* observer) { observer->commandEnded(this); });
  if (!self.get() || d->begun)
    return;
  if (isCheckable() && isChecked())
    setChecked(false); // it was closed from the panel
  if (!self.get() || d->begun || !d->panel || hostOf(flyout()))
    return;
  const QPointer<QWidget> panel(d->panel);
  if (FlyoutBase* const flyoutPanel = flyout())
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
