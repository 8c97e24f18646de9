// SPDX-License-Identifier: MIT
#pragma once

#include "command_search.h"
#include "way_out.h"

#include <QAbstractListModel>

namespace Vela::UiBase {

/// The rows of a command palette: the commands that answer what was typed, or the ways out for one that
/// cannot be used.
class CommandPaletteModel : public QAbstractListModel {
  Q_OBJECT

public:
  enum ERole : int {
    PathRole = Qt::UserRole, ///< QString: the groups of the command.
    ShortcutRole,            ///< QString
    ReasonRole,              ///< QString: why the command cannot be used; empty when it can.
  };

  using QAbstractListModel::QAbstractListModel;

  void setManagers(const QList<std::shared_ptr<CmdMgr>>& managers);
  void showCommands(const QString& typed, const CommandUsage& usage);
  /// In place of the commands, for the one of that row.
  void showWaysOut(int row, const QList<WayOut>& ways);
  bool showsWaysOut() const { return m_heldUp >= 0; }

  /// The command of a row, or the one that the ways out are for; null when it has died.
  std::shared_ptr<CommandBase> commandAt(int row) const;
  std::shared_ptr<CmdMgr> managerAt(int row) const;
  const WayOut& wayAt(int row) const { return m_ways[row]; }

  int rowCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;

private:
  const CommandSearch::Entry& entryAt(int row) const;
  QVariant commandData(int row, int role) const;

  CommandSearch m_search;
  QList<int> m_found;
  QList<WayOut> m_ways;
  int m_heldUp = -1; // the row that the ways out are for
};

} // namespace Vela::UiBase
