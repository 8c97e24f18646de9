// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractTableModel>
#include <QStringList>

#include <utility>

namespace Vela::UiBase {

/// Rows of texts that are replaced as a whole.
class SnapshotModel : public QAbstractTableModel {
  Q_OBJECT

public:
  explicit SnapshotModel(QStringList titles) : m_titles(std::move(titles)) {}

  void setRows(const QList<QStringList>& rows) {
    if (rows == m_rows)
      return;
    beginResetModel();
    m_rows = rows;
    endResetModel();
  }

  int rowCount(const QModelIndex& parent = {}) const override {
    return parent.isValid() ? 0 : int(m_rows.size());
  }
  int columnCount(const QModelIndex& parent = {}) const override {
    return parent.isValid() ? 0 : int(m_titles.size());
  }
  QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override {
    return role == Qt::DisplayRole ? QVariant(m_rows.value(index.row()).value(index.column())) : QVariant();
  }
  QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override {
    const bool isTitle = orientation == Qt::Horizontal && role == Qt::DisplayRole;
    return isTitle ? QVariant(m_titles.value(section)) : QVariant();
  }

private:
  QStringList m_titles;
  QList<QStringList> m_rows;
};

} // namespace Vela::UiBase
