// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/commands/run_record.h>
#include <ui_base/ui_base_export.h>

#include <QAbstractTableModel>

#include <deque>

namespace Vela::UiBase {

/// The records of the RunLog as a table, oldest first: for a window that shows what the program did. Follows
/// the log from its construction on; for the main thread.
///
/// @code
/// auto* table = new QTableView(window);
/// table->setModel(new RunModel(table));
/// @endcode
class UI_BASE_EXPORT RunModel : public QAbstractTableModel {
  Q_OBJECT

public:
  enum EColumn : int {
    CommandColumn,
    SourceColumn,
    WaitColumn,     ///< Milliseconds.
    DurationColumn, ///< Milliseconds.
    ThreadColumn,
    OutcomeColumn,
    MessageColumn,
    ColumnCount,
  };
  enum ERole : int {
    RecordRole = Qt::UserRole, ///< The whole RunRecord.
    SortRole,                  ///< Numbers where the column shows numbers.
  };

  /// Shows RunLog::Instance().
  explicit RunModel(QObject* parent = nullptr);
  ~RunModel() override;

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

private:
  void reload();
  void onBegan(const RunRecord& record);
  void onEnded(const RunRecord& record);

  std::deque<RunRecord> m_records; // rising identifiers
};

} // namespace Vela::UiBase
