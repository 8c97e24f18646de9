// SPDX-License-Identifier: MIT
#include "explain.h"

#include "cmd_mgr_p.h"
#include "command_base.h"
#include "command_group.h"
#include "command_name.h"

#include <vlk_license/license_service.h>

#include <QActionGroup>
#include <QCoreApplication>

namespace Vela::UiBase {

namespace {

struct Sentences {
  Q_DECLARE_TR_FUNCTIONS(Vela::UiBase::CommandCause)
};

QString notAtPresent() { return Sentences::tr("Not available at present."); }

QString needsLicence() { return Sentences::tr("This is a paid feature; it needs a licence."); }

QString nameOf(const CmdMgr& manager, const QString& id) {
  const CommandBase* const command = manager.findCommand(id);
  return command ? nameInSentence(*command) : id;
}

QString sentence(const CmdMgr& manager, const ContextHolder& holder) {
  switch (holder.kind()) {
  case ContextHolder::RunningCommand:
    return Sentences::tr("\"%1\" is running.").arg(nameOf(manager, holder.commandId()));
  case ContextHolder::OpenCommand:
    return Sentences::tr("The panel \"%1\" is open.").arg(nameOf(manager, holder.commandId()));
  case ContextHolder::Reason:
    return holder.reason();
  case ContextHolder::Nobody:
    break;
  }
  return Sentences::tr("Something else is under way.");
}

bool isDisabled(CommandGroup& group) { return !group.isEnabled() || !group.groupActionGroup()->isEnabled(); }

QList<CommandCause> groupsDisabling(const CommandBase& command) {
  QList<CommandCause> causes;
  const QList<CommandGroup*> groups = command.holdingGroups();
  for (CommandGroup* const group : groups) {
    if (isDisabled(*group))
      causes.append({CommandCause::Group,
                     {},
                     Sentences::tr("The group \"%1\" is not available.").arg(nameInSentence(*group))});
  }
  return causes;
}

} // namespace

QList<CommandCause> CmdMgr::explain(const QString& id) const {
  QList<CommandCause> causes;
  const CommandBase* const command = findCommand(id);
  if (!command)
    return causes;
  // What is handed over but not applied is not in the command's own state yet.
  State enabled = command->isEnabled();
  for (const auto& pending : std::as_const(d->pending))
    enabled = pending->left(id).enabled;
  const bool isDisabled = enabled == State::Off;
  if (isDisabled) {
    const QList<ContextHolder> holders = holdersDisabling(id);
    for (const ContextHolder& holder : holders)
      causes.append({CommandCause::Layer, holder, sentence(*this, holder)});
  }
  const bool groundIsOff =
      isDisabled && d->layers.groundPart(id, &CommandState::enabled, State::Off) == State::Off;
  const QString reason = groundIsOff ? groundReason(id) : QString();
  const QList<CommandCause> groups = isDisabled ? groupsDisabling(*command) : QList<CommandCause>();
  if (isDisabled && reason.isEmpty() && groups.isEmpty() && (groundIsOff || causes.isEmpty()))
    causes.append({CommandCause::OwnState, {}, notAtPresent()});
  causes += groups;
  if (command->isPaidFeature() && !License::LicenseService::Instance().isUsable())
    causes.append({CommandCause::Licence, {}, needsLicence()});
  if (!reason.isEmpty())
    causes.append({CommandCause::Application, {}, reason});
  return causes;
}

} // namespace Vela::UiBase
