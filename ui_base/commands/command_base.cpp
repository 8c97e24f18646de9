// SPDX-License-Identifier: MIT
#include "command_base.h"

#include "cmd_mgr.h"
#include "command_execution.h"
#include "command_group.h"
#include "command_name.h"
#include "command_texts.h"
#include "command_tips.h"
#include "run_log.h"
#include "run_source.h"
#include "upstairs.h"

#include <vlk_common_res/strings.h>
#include <vlk_license/license_service.h>

#include <QCoreApplication>
#include <QLoggingCategory>

#include <array>

template class Taren::Objects::SharedObject<Vela::UiBase::CommandBase>;

namespace Vela::UiBase {

namespace {

Q_LOGGING_CATEGORY(commandLog, "vela.command")

} // namespace

class CommandBasePrivate {
public:
  QPointer<QObject> controller;
  QPointer<CommandGroup> group;
  QList<QPointer<CommandGroup>> holdingGroups;
  QString baseGroupName = Resource::String::COMMAND_DEFAULT_GROUP();
  bool attached = false;
  QStringList attachedGroupNames;
  Taren::Core::EQualityOfService executionQoS = Taren::Core::MainThreadQoS;
  bool notificationEnabled = false;
  std::array<Text, 2> notificationMessages{QString(), QString()};
  bool paidFeature = false;
  CommandTexts texts;
};

CommandBase::CommandBase(CmdsViewController* controller) : d(std::make_unique<CommandBasePrivate>()) {
  d->controller = Upstairs::asObject(controller);
  connect(this, &QAction::triggered, this, &CommandBase::onTriggered);
  connect(this, &QAction::toggled, this, &CommandBase::onToggled);
  InputWatch::start();
  CommandTips::start();
}

CommandBase::~CommandBase() { beginDestruction(); }

void CommandBase::setParent(QObject* parent) {
  if (!isShared())
    QAction::setParent(parent);
}

// Overriders make the tags, so commandTags() is not const; asking for them changes nothing.
bool CommandBase::hasTag(const QString& tag) const {
  return const_cast<CommandBase*>(this)->commandTags().contains(tag);
}

QStringList CommandBase::commandTags() { return {}; }

CommandState CommandBase::defaultCommandState() { return {State::On, State::Off}; }

CommandState CommandBase::commandState() { return {State(isEnabled()), State(isChecked())}; }

void CommandBase::setCommandState(const CommandState& state) {
  if (state.enabled != State::Keep && state.enabled != isEnabled()) {
    const bool mayGoOn = state.checked != State::Keep && isCheckable();
    const QPointer<CommandBase> self(mayGoOn ? this : nullptr);
    setEnabled(state.enabled);
    if (!self)
      return;
  }
  if (state.checked != State::Keep && isCheckable() && state.checked != isChecked())
    setChecked(state.checked);
}

void CommandBase::setViewController(CmdsViewController* controller) {
  d->controller = Upstairs::asObject(controller);
}

Taren::Core::EQualityOfService CommandBase::executionQoS() { return d->executionQoS; }

void CommandBase::setExecutionQoS(const Taren::Core::EQualityOfService& qos) { d->executionQoS = qos; }

bool CommandBase::isExecutionNotificationEnabled() const { return d->notificationEnabled; }

void CommandBase::enableExecutionNotification(bool enable) { d->notificationEnabled = enable; }

QString CommandBase::getExecutionNotificationMessage(ENotification notification) const {
  return d->notificationMessages.at(notification == EndNotification ? 1 : 0).translated();
}

void CommandBase::setExecutionNotificationMessage(ENotification notification, const QString& message) {
  setExecutionNotificationMessage(notification, Text(message));
}

void CommandBase::setExecutionNotificationMessage(ENotification notification, const Text& message) {
  d->notificationMessages.at(notification == EndNotification ? 1 : 0) = message;
}

void CommandBase::setText(const Text& text) { d->texts.set(*this, CommandTexts::Label, text); }

void CommandBase::setToolTip(const Text& toolTip) { d->texts.set(*this, CommandTexts::ToolTip, toolTip); }

void CommandBase::setStatusTip(const Text& statusTip) {
  d->texts.set(*this, CommandTexts::StatusTip, statusTip);
}

Text CommandBase::translatableText() const {
  return d->texts.text(*this, CommandTexts::Label).value_or(Text(text()));
}

QVariantMap CommandBase::inputs() const { return {}; }

bool CommandBase::setInputs(const QVariantMap& inputs) { return inputs.isEmpty(); }

bool CommandBase::needsInputs() const { return false; }

bool CommandBase::hasCommand(const QString&) const { return false; }

CommandBase* CommandBase::getCommand(const QString&) { return nullptr; }

CommandGroup* CommandBase::commandGroup() const { return d->group; }

void CommandBase::setCommandGroup(CommandGroup* group) { d->group = group; }

QList<CommandGroup*> CommandBase::holdingGroups() const {
  QList<CommandGroup*> groups;
  for (const auto& group : std::as_const(d->holdingGroups)) {
    if (group)
      groups.append(group);
  }
  return groups;
}

QString CommandBase::whyUnavailable() const {
  const CmdMgr* const manager = Upstairs::managerOf(getViewController());
  const QList<CommandCause> causes = manager ? manager->explain(commandId()) : QList<CommandCause>();
  return causes.isEmpty() ? QString() : causes.constFirst().text;
}

QList<CommandRun> CommandBase::runs() const { return RunLog::Instance().runsUnderway(*this); }

void CommandBase::requestStop() const {
  const QList<CommandRun> underway = runs();
  for (const CommandRun& run : underway)
    run.requestStop();
}

void CommandBase::enterGroup(CommandGroup& group) {
  d->holdingGroups.append(&group);
  setCommandGroup(&group);
}

void CommandBase::leaveGroup(const CommandGroup& group) {
  d->holdingGroups.removeIf([&group](const auto& held) { return !held || held == &group; });
  if (commandGroup() == &group)
    setCommandGroup(d->holdingGroups.isEmpty() ? nullptr : d->holdingGroups.constLast().data());
}

QString CommandBase::baseGroupName() const { return d->baseGroupName; }

void CommandBase::setBaseGroupName(const QString& name) { d->baseGroupName = name; }

bool CommandBase::isAttached() const { return d->attached; }

void CommandBase::setAttached(bool attached) { d->attached = attached; }

void CommandBase::addAttachedCommandGroupName(const QString& name) {
  if (!d->attachedGroupNames.contains(name))
    d->attachedGroupNames.append(name);
}

void CommandBase::removeAttachedCommandGroupName(const QString& name) {
  d->attachedGroupNames.removeAll(name);
}

QStringList CommandBase::attachedCommandGroupNames() const { return d->attachedGroupNames; }

const QStringList& CommandBase::attachedCommandGroupName() const { return d->attachedGroupNames; }

BaseView* CommandBase::getView() const { return Upstairs::viewOf(d->controller); }

CmdsViewController* CommandBase::getViewController() const { return Upstairs::asController(d->controller); }

bool CommandBase::isPaidFeature() const { return d->paidFeature; }

void CommandBase::setIsPaidFeature(bool paid) { d->paidFeature = paid; }

CommandContext CommandBase::getExecutionCommandContext() { return {}; }

bool CommandBase::onExecute(bool checked) {
  return std::make_shared<CommandExecution>(*this, checked)->run();
}

void CommandBase::onTriggered(bool checked) {
  if (isCheckable())
    return;
  const CommandRef self(*this);
  if (isPaidFeature() &&
      !License::LicenseService::Instance().confirmPaidFeature(Upstairs::asWidget(getView()), text()))
    return;
  if (self.get())
    Q_EMIT toBeTriggered(checked);
  if (self.get())
    onExecute(checked);
}

void CommandBase::onToggled(bool checked) {
  if (!isCheckable())
    return;
  const CommandRef self(*this);
  Q_EMIT toBeToggled(checked);
  if (self.get())
    onExecute(checked);
}

void CommandBase::onExecutionFailed(const QString& reason) {
  qCWarning(commandLog, "%s failed: %s", qUtf8Printable(commandId()), qUtf8Printable(reason));
  const QString sentence = QCoreApplication::translate("Vela::UiBase::CommandBase", "\"%1\" failed: %2");
  Upstairs::showError(d->controller, sentence.arg(nameInSentence(*this), reason));
}

} // namespace Vela::UiBase
