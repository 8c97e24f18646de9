// SPDX-License-Identifier: MIT
#include "run_model.h"

#include "run_log.h"

#include <QLocale>

#include <algorithm>

namespace Vela::UiBase {

namespace {

double milliseconds(std::chrono::nanoseconds time) {
  return std::chrono::duration<double, std::milli>(time).count();
}

QString timeText(std::chrono::nanoseconds time) {
  return QLocale().toString(milliseconds(time), 'f', time < std::chrono::milliseconds(10) ? 2 : 0);
}

QVariant shown(const RunRecord& record, int column) {
  switch (column) {
  case RunModel::CommandColumn:
    return record.commandId;
  case RunModel::SourceColumn:
    return runSourceText(record.source);
  case RunModel::WaitColumn:
    return timeText(record.wait);
  case RunModel::DurationColumn:
    return timeText(record.duration);
  case RunModel::ThreadColumn:
    return record.thread == 0 ? QVariant() : record.thread;
  case RunModel::OutcomeColumn:
    return runOutcomeText(record.outcome);
  case RunModel::MessageColumn:
    return record.blockedMainThread && record.message.isEmpty() ? RunModel::tr("Kept the main thread busy")
                                                                : record.message;
  default:
    return {};
  }
}

QVariant sorted(const RunRecord& record, int column) {
  if (column == RunModel::WaitColumn)
    return milliseconds(record.wait);
  if (column == RunModel::DurationColumn)
    return milliseconds(record.duration);
  return shown(record, column);
}

bool isNumber(int column) {
  return column == RunModel::WaitColumn || column == RunModel::DurationColumn ||
         column == RunModel::ThreadColumn;
}

} // namespace

RunModel::RunModel(QObject* parent) : QAbstractTableModel(parent) {
  const RunLog& log = RunLog::Instance();
  connect(&log, &RunLog::runBegan, this, &RunModel::onBegan);
  connect(&log, &RunLog::runEnded, this, &RunModel::onEnded);
  connect(&log, &RunLog::cleared, this, &RunModel::reload);
  reload();
}

RunModel::~RunModel() = default;

void RunModel::reload() {
  const QList<RunRecord> records = RunLog::Instance().records();
  beginResetModel();
  m_records.assign(records.cbegin(), records.cend());
  endResetModel();
}

int RunModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(m_records.size());
}

int RunModel::columnCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : ColumnCount; }

QVariant RunModel::data(const QModelIndex& index, int role) const {
  if (!checkIndex(index, CheckIndexOption::IndexIsValid))
    return {};
  const RunRecord& record = m_records[static_cast<std::size_t>(index.row())];
  switch (role) {
  case Qt::DisplayRole:
    return shown(record, index.column());
  case Qt::TextAlignmentRole:
    return isNumber(index.column()) ? QVariant(int(Qt::AlignRight | Qt::AlignVCenter)) : QVariant();
  case RecordRole:
    return QVariant::fromValue(record);
  case SortRole:
    return sorted(record, index.column());
  default:
    return {};
  }
}

QVariant RunModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
    return QAbstractTableModel::headerData(section, orientation, role);
  switch (section) {
  case CommandColumn:
    return tr("Command");
  case SourceColumn:
    return tr("Source");
  case WaitColumn:
    return tr("Waited (ms)");
  case DurationColumn:
    return tr("Took (ms)");
  case ThreadColumn:
    return tr("Thread");
  case OutcomeColumn:
    return tr("Outcome");
  case MessageColumn:
    return tr("Message");
  default:
    return {};
  }
}

// One that came from another thread may be known from reload() already.
void RunModel::onBegan(const RunRecord& record) {
  const auto place = std::ranges::lower_bound(m_records, record.id, {}, &RunRecord::id);
  if (place != m_records.end() && place->id == record.id)
    return;
  const int row = static_cast<int>(place - m_records.begin());
  beginInsertRows({}, row, row);
  m_records.insert(place, record);
  endInsertRows();
  const int surplus = rowCount() - static_cast<int>(RunLog::Instance().capacity());
  if (surplus <= 0)
    return;
  beginRemoveRows({}, 0, surplus - 1);
  m_records.erase(m_records.begin(), m_records.begin() + surplus);
  endRemoveRows();
}

void RunModel::onEnded(const RunRecord& record) {
  const auto place = std::ranges::lower_bound(m_records, record.id, {}, &RunRecord::id);
  if (place == m_records.end() || place->id != record.id)
    return;
  *place = record;
  const int row = static_cast<int>(place - m_records.begin());
  Q_EMIT dataChanged(index(row, 0), index(row, ColumnCount - 1));
}

} // namespace Vela::UiBase
