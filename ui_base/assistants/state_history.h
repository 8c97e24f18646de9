// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractTableModel>
#include <QHash>
#include <QTime>

#include <deque>
#include <memory>

namespace Vela::UiBase {

class CmdMgr;
class CommandBase;

/// How the states of commands changed since it was made, the newest 200 changes with who brought them, the
/// last one first.
class StateHistory : public QAbstractTableModel {
  Q_OBJECT

public:
  static constexpr std::size_t capacity = 200;
  enum EColumn : int { TimeColumn, CommandColumn, StateColumn, HolderColumn, ColumnCount };

  using QAbstractTableModel::QAbstractTableModel;

  /// Follows the commands of these managers, also those that came since the last call.
  void follow(const QList<std::shared_ptr<CmdMgr>>& managers);
  /// When the command last came to the state that it is in; nothing when it was so from the beginning.
  QTime since(const CommandBase& command) const;

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

private:
  struct Change {
    QTime time;
    QString id;
    QString state;
    QString holder;
  };
  struct Known {
    bool isEnabled = false;
    bool isChecked = false;
    QString why; // it is disabled
    QTime since;
  };

  void watch(CommandBase& command);
  void look(CommandBase& command);

  QHash<const QObject*, Known> m_known; // by address, until they die
  std::deque<Change> m_changes;         // the newest first
};

} // namespace Vela::UiBase
