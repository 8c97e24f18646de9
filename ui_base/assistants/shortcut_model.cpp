// SPDX-License-Identifier: MIT
#include "shortcut_model.h"

#include "command_usage.h"
#include "shortcut_scheme.h"

#include <ui_base/commands/cmd_mgr.h>
#include <ui_base/commands/command_base.h>

#include <QFont>
#include <QPixmap>
#include <QSet>

namespace Vela::UiBase {

namespace {

/// One that cannot be seen where the command has none, so that all names begin in one line.
QIcon iconOf(const CommandBase& command) {
  if (!command.icon().isNull())
    return command.icon();
  QPixmap nothing(16, 16);
  nothing.fill(Qt::transparent);
  return nothing;
}

} // namespace

ShortcutModel::ShortcutModel(ShortcutScheme& scheme, QObject* parent)
    : QAbstractTableModel(parent), m_scheme(scheme) {
  connect(&scheme, &ShortcutScheme::changed, this, &ShortcutModel::showChanges);
}

void ShortcutModel::find(const QString& typed) {
  beginResetModel();
  m_search.clear();
  const auto managers = m_scheme.managers();
  for (const auto& manager : managers)
    m_search.collect(manager);
  m_found = m_search.find(typed, CommandUsage());
  QSet<QString> seen; // two windows have the same commands
  m_found.removeIf([this, &seen](const auto& found) {
    const auto command = m_search.at(found).command.lock();
    const QString id = m_search.at(found).id;
    const bool isKnown = seen.contains(id);
    seen.insert(id);
    return isKnown || (command && command->hasTag(ShortcutScheme::noShortcutTag()));
  });
  endResetModel();
}

void ShortcutModel::showChanges() {
  if (rowCount() > 0)
    Q_EMIT dataChanged(index(0, ShortcutColumn), index(rowCount() - 1, ShortcutColumn));
}

std::shared_ptr<CommandBase> ShortcutModel::commandAt(int row) const {
  return row >= 0 && row < rowCount() ? m_search.at(m_found[row]).command.lock() : nullptr;
}

int ShortcutModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(m_found.size());
}

int ShortcutModel::columnCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : ColumnCount; }

QString ShortcutModel::textAt(int row, int column) const {
  const CommandSearch::Entry& entry = m_search.at(m_found[row]);
  const auto command = entry.command.lock();
  if (column == NameColumn)
    return entry.name;
  if (column == GroupColumn)
    return entry.path;
  return command ? QKeySequence::listToString(m_scheme.shortcuts(*command), QKeySequence::NativeText)
                 : QString();
}

QVariant ShortcutModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid() || index.row() >= rowCount())
    return {};
  const auto command = commandAt(index.row());
  const bool isChanged = command && m_scheme.isChanged(command->commandId());
  switch (role) {
  case Qt::DisplayRole:
    return textAt(index.row(), index.column());
  case Qt::DecorationRole:
    return index.column() == NameColumn && command ? iconOf(*command) : QVariant();
  case Qt::FontRole: {
    QFont font;
    font.setBold(true);
    return isChanged && index.column() == ShortcutColumn ? QVariant(font) : QVariant();
  }
  case Qt::AccessibleDescriptionRole:
    return isChanged ? tr("Changed") : QString();
  default:
    return {};
  }
}

QVariant ShortcutModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
    return {};
  const QString titles[] = {tr("Command"), tr("Shortcut"), tr("Group")};
  return section >= 0 && section < ColumnCount ? titles[section] : QVariant();
}

} // namespace Vela::UiBase
