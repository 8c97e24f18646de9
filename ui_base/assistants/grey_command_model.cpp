// SPDX-License-Identifier: MIT
#include "grey_command_model.h"

#include <ui_base/commands/cmd_mgr.h>
#include <ui_base/commands/command_walk.h>

#include <algorithm>
#include <utility>

namespace Vela::UiBase {

GreyCommandModel::Row GreyCommandModel::rowFor(const CmdMgr& manager, const CommandBase& command) const {
  const QString id = command.commandId();
  QStringList reasons;
  const auto causes = manager.explain(id);
  for (const CommandCause& cause : causes)
    reasons.append(cause.text);
  if (reasons.isEmpty())
    reasons.append(tr("It is about to be enabled."));
  Row row{&command, id, reasons.join(u' '), QTime::currentTime()};
  const auto before = std::find_if(m_rows.cbegin(), m_rows.cend(),
                                   [&](const Row& known) { return known.command == &command; });
  if (before != m_rows.cend() && before->id == id && before->why == row.why)
    row.since = before->since;
  return row;
}

void GreyCommandModel::look(const QList<std::shared_ptr<CmdMgr>>& managers) {
  QList<Row> rows;
  for (const auto& manager : managers) {
    visitCommands(std::as_const(*manager).commandBag(), [&](const CommandBase& command) {
      if (!command.isEnabled() && !dynamic_cast<const CommandGroup*>(&command))
        rows.append(rowFor(*manager, command));
    });
  }
  if (rows == m_rows)
    return;
  beginResetModel();
  m_rows = std::move(rows);
  endResetModel();
}

int GreyCommandModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

int GreyCommandModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : ColumnCount;
}

QVariant GreyCommandModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid() || index.row() >= rowCount() || role != Qt::DisplayRole)
    return {};
  const Row& row = m_rows[index.row()];
  const QString texts[] = {row.id, row.why, row.since.toString(QStringLiteral("HH:mm:ss"))};
  return texts[index.column()];
}

QVariant GreyCommandModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || role != Qt::DisplayRole || section < 0 || section >= ColumnCount)
    return {};
  const QString titles[] = {tr("Cannot be used"), tr("Why"), tr("Since")};
  return titles[section];
}

} // namespace Vela::UiBase
