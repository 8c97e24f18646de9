// SPDX-License-Identifier: MIT
#include "state_history.h"

#include "inspector_sections.h"

#include <ui_base/commands/cmd_mgr.h>
#include <ui_base/commands/command_walk.h>
#include <ui_base/views/cmds_view_controller.h>

#include <algorithm>
#include <utility>

namespace Vela::UiBase {

namespace {

// The topmost layer that names it, where that says so; else a run of the command itself.
QString whoChecks(const CommandBase& command, bool isChecked) {
  const CmdMgr* const manager = command.getViewController();
  const auto layers = manager ? manager->layers() : QList<ContextLayer>();
  const auto names = [id = command.commandId()](const ContextLayer& layer) {
    return layer.asked.get().value(id).checked != State::Keep;
  };
  const auto top = std::find_if(layers.crbegin(), layers.crend(), names);
  if (top != layers.crend() && top->asked.get().value(command.commandId()).checked == State(isChecked))
    return InspectorSections::holderText(top->holder);
  return command.runs().isEmpty() ? QString() : StateHistory::tr("It runs.");
}

} // namespace

void StateHistory::follow(const QList<std::shared_ptr<CmdMgr>>& managers) {
  for (const auto& manager : managers)
    visitCommands(std::as_const(*manager).commandBag(), [this](CommandBase& command) { watch(command); });
}

void StateHistory::watch(CommandBase& command) {
  if (m_known.contains(&command))
    return;
  m_known.insert(&command, {command.isEnabled(), command.isChecked(), command.whyUnavailable(), {}});
  connect(&command, &QAction::changed, this, [this, watched = &command] { look(*watched); });
  connect(&command, &QObject::destroyed, this, [this](const QObject* gone) { m_known.remove(gone); });
}

void StateHistory::look(CommandBase& command) {
  const auto known = m_known.find(&command);
  const bool isEnabled = command.isEnabled();
  const bool isChecked = command.isChecked();
  if (known == m_known.end() || (known->isEnabled == isEnabled && known->isChecked == isChecked))
    return;
  QStringList parts;
  QStringList holders;
  const QString why = isEnabled ? QString() : command.whyUnavailable();
  if (known->isEnabled != isEnabled) {
    parts.append(isEnabled ? tr("enabled") : tr("disabled"));
    holders.append(!isEnabled || known->why.isEmpty() ? why : tr("No more: %1").arg(known->why));
  }
  if (known->isChecked != isChecked) {
    parts.append(isChecked ? tr("checked") : tr("unchecked"));
    holders.append(whoChecks(command, isChecked));
  }
  holders.removeAll(QString());
  const QTime now = QTime::currentTime();
  const QTime since = known->isEnabled != isEnabled ? now : known->since;
  *known = {isEnabled, isChecked, why, since};
  beginInsertRows({}, 0, 0);
  m_changes.push_front({now, command.commandId(), parts.join(QLatin1String(", ")), holders.join(u' ')});
  endInsertRows();
  if (m_changes.size() <= capacity)
    return;
  beginRemoveRows({}, int(capacity), int(capacity));
  m_changes.pop_back();
  endRemoveRows();
}

QTime StateHistory::since(const CommandBase& command) const { return m_known.value(&command).since; }

int StateHistory::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : int(m_changes.size());
}

int StateHistory::columnCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : ColumnCount; }

QVariant StateHistory::data(const QModelIndex& index, int role) const {
  if (role != Qt::DisplayRole || !checkIndex(index, CheckIndexOption::IndexIsValid))
    return {};
  const Change& change = m_changes[std::size_t(index.row())];
  const QString texts[] = {change.time.toString(QStringLiteral("HH:mm:ss.zzz")), change.id, change.state,
                           change.holder};
  return texts[index.column()];
}

QVariant StateHistory::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || role != Qt::DisplayRole || section < 0 || section >= ColumnCount)
    return {};
  const QString titles[] = {tr("Time"), tr("Command"), tr("Became"), tr("Because")};
  return titles[section];
}

} // namespace Vela::UiBase
