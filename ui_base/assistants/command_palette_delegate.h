// SPDX-License-Identifier: MIT
#pragma once

#include <QStyledItemDelegate>

namespace Vela::UiBase {

/// Paints a row of a command palette: icon, name, groups, and at the end the shortcut; of a command that
/// cannot be used the name in grey, and why in place of the groups.
class CommandPaletteDelegate : public QStyledItemDelegate {
  Q_OBJECT

public:
  using QStyledItemDelegate::QStyledItemDelegate;

  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
};

} // namespace Vela::UiBase
