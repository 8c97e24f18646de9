// SPDX-License-Identifier: MIT
#include "command_palette_model.h"

#include "command_usage.h"

#include <ui_base/commands/cmd_mgr.h>
#include <ui_base/commands/command_base.h>

namespace Vela::UiBase {

namespace {

QString reasonOf(const CommandBase& command, const std::shared_ptr<CmdMgr>& manager) {
  const auto causes =
      manager && !command.isEnabled() ? manager->explain(command.commandId()) : QList<CommandCause>();
  return causes.isEmpty() ? QString() : causes.first().text;
}

} // namespace

void CommandPaletteModel::setManagers(const QList<std::shared_ptr<CmdMgr>>& managers) {
  beginResetModel();
  m_heldUp = -1;
  m_found.clear();
  m_search.clear();
  for (const auto& manager : managers)
    m_search.collect(manager);
  endResetModel();
}

void CommandPaletteModel::showCommands(const QString& typed, const CommandUsage& usage) {
  beginResetModel();
  m_heldUp = -1;
  m_found = m_search.find(typed, usage);
  endResetModel();
}

void CommandPaletteModel::showWaysOut(int row, const QList<WayOut>& ways) {
  beginResetModel();
  m_heldUp = row;
  m_ways = ways;
  endResetModel();
}

const CommandSearch::Entry& CommandPaletteModel::entryAt(int row) const {
  return m_search.at(m_found[showsWaysOut() ? m_heldUp : row]);
}

std::shared_ptr<CommandBase> CommandPaletteModel::commandAt(int row) const {
  return entryAt(row).command.lock();
}

std::shared_ptr<CmdMgr> CommandPaletteModel::managerAt(int row) const { return entryAt(row).manager.lock(); }

int CommandPaletteModel::rowCount(const QModelIndex& parent) const {
  if (parent.isValid())
    return 0;
  return static_cast<int>(showsWaysOut() ? m_ways.size() : m_found.size());
}

QVariant CommandPaletteModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid() || index.row() >= rowCount())
    return {};
  if (!showsWaysOut())
    return commandData(index.row(), role);
  const bool isText = role == Qt::DisplayRole || role == Qt::AccessibleTextRole;
  return isText ? QVariant(m_ways[index.row()].text) : QVariant();
}

QVariant CommandPaletteModel::commandData(int row, int role) const {
  const CommandSearch::Entry& entry = entryAt(row);
  const auto command = entry.command.lock();
  switch (role) {
  case Qt::DisplayRole:
    return entry.name;
  case PathRole:
    return entry.path;
  case Qt::DecorationRole:
    return command ? command->icon() : QIcon();
  case ShortcutRole:
    return command ? command->shortcut().toString(QKeySequence::NativeText) : QString();
  case ReasonRole:
    return command ? reasonOf(*command, entry.manager.lock()) : tr("This command is gone.");
  case Qt::AccessibleTextRole: {
    QStringList parts{entry.name, entry.path, commandData(row, ShortcutRole).toString(),
                      commandData(row, ReasonRole).toString()};
    parts.removeAll(QString());
    return parts.join(QLatin1String(", "));
  }
  default:
    break;
  }
  return {};
}

} // namespace Vela::UiBase
