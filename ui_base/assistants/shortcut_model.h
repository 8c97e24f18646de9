// SPDX-License-Identifier: MIT
#pragma once

#include "command_search.h"

#include <QAbstractTableModel>

namespace Vela::UiBase {

class ShortcutScheme;

/// The rows of a shortcut editor: the commands that answer what was typed, with their shortcuts and groups.
class ShortcutModel : public QAbstractTableModel {
  Q_OBJECT

public:
  enum EColumn : int { NameColumn, ShortcutColumn, GroupColumn, ColumnCount };

  explicit ShortcutModel(ShortcutScheme& scheme, QObject* parent = nullptr);

  /// Looks at the commands anew.
  void find(const QString& typed);
  /// Null for no row, and when the command has died.
  std::shared_ptr<CommandBase> commandAt(int row) const;

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

private:
  void showChanges();
  QString textAt(int row, int column) const;

  ShortcutScheme& m_scheme;
  CommandSearch m_search;
  QList<int> m_found;
};

} // namespace Vela::UiBase
