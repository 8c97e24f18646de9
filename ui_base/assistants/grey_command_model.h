// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractTableModel>
#include <QDateTime>
#include <QHash>

#include <memory>

namespace Vela::UiBase {

class CmdMgr;
class CommandBase;

/// The commands that cannot be used, with all causes and the time from which on they were seen like that.
class GreyCommandModel : public QAbstractTableModel {
  Q_OBJECT

public:
  enum EColumn : int { CommandColumn, WhyColumn, SinceColumn, ColumnCount };

  using QAbstractTableModel::QAbstractTableModel;

  /// Looks at the commands of these managers.
  void look(const QList<std::shared_ptr<CmdMgr>>& managers);

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

private:
  struct Row {
    const CommandBase* command = nullptr; // two windows have the same identifiers; not followed
    QString id;
    QString why;
    QTime since;
    bool operator==(const Row&) const = default;
  };

  Row rowFor(const CmdMgr& manager, const CommandBase& command) const;

  QList<Row> m_rows;
};

} // namespace Vela::UiBase
