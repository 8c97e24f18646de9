// SPDX-License-Identifier: MIT
#include "command_palette_delegate.h"

#include "command_palette_model.h"

#include <vlk_common_res/styles.h>

#include <QApplication>
#include <QPainter>

namespace Vela::UiBase {

namespace {

constexpr int margin = 8;     // px, at both ends and between the parts
constexpr int iconSide = 16;  // px
constexpr int rowHeight = 28; // px

/// Lays the parts of a row one after another, from its start or its end, in reading direction.
class Row {
public:
  Row(QPainter& painter, const QStyleOptionViewItem& option)
      : m_painter(painter), m_option(option), m_left(option.rect.adjusted(margin, 0, -margin, 0)) {}

  QRect fromStart(int width) {
    const QRect part(m_left.topLeft(), QSize(width, m_left.height()));
    m_left.setLeft(part.right() + 1 + margin);
    return mirrored(part);
  }
  void writeAtStart(const QString& text, const QColor& color) {
    write(text, color, [this](int width) { return fromStart(width); });
  }
  void writeAtEnd(const QString& text, const QColor& color) {
    write(text, color, [this](int width) {
      const QRect part(QPoint(m_left.right() + 1 - width, m_left.top()), QSize(width, m_left.height()));
      m_left.setRight(part.left() - 1 - margin);
      return mirrored(part);
    });
  }

private:
  QRect mirrored(const QRect& part) const {
    return QStyle::visualRect(m_option.direction, m_option.rect, part);
  }

  template <class Take>
  void write(const QString& text, const QColor& color, const Take& take) {
    const int room = m_left.width();
    if (text.isEmpty() || room <= 0)
      return;
    const QFontMetrics& metrics = m_option.fontMetrics;
    const QString shown = metrics.elidedText(text, Qt::ElideRight, room);
    m_painter.setPen(color);
    m_painter.drawText(take(std::min(room, metrics.horizontalAdvance(shown))),
                       Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine, shown);
  }

  QPainter& m_painter;
  const QStyleOptionViewItem& m_option;
  QRect m_left; // as if from left to right
};

} // namespace

void CommandPaletteDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                                   const QModelIndex& index) const {
  const auto& styles = Vela::Resource::Styles::Instance();
  const bool isCurrent = option.state.testFlag(QStyle::State_Selected);
  const QString reason = index.data(CommandPaletteModel::ReasonRole).toString();
  const QString path = index.data(CommandPaletteModel::PathRole).toString();
  const QColor minor = isCurrent ? styles.ColorAccentText() : styles.ColorTextLabel();
  const QColor major = isCurrent ? styles.ColorAccentText() : styles.ColorText();

  painter->save();
  painter->setFont(option.font);
  if (isCurrent)
    painter->fillRect(option.rect, styles.ColorAccent());
  Row row(*painter, option);
  const auto icon = index.data(Qt::DecorationRole).value<QIcon>();
  const QRect place = row.fromStart(iconSide);
  const QRect iconPlace(place.center() - QPoint(iconSide / 2 - 1, iconSide / 2 - 1),
                        QSize(iconSide, iconSide));
  const auto usable = isCurrent ? QIcon::Selected : QIcon::Normal;
  icon.paint(painter, iconPlace, Qt::AlignCenter, reason.isEmpty() ? usable : QIcon::Disabled);
  row.writeAtEnd(index.data(CommandPaletteModel::ShortcutRole).toString(), minor);
  row.writeAtStart(index.data(Qt::DisplayRole).toString(), reason.isEmpty() ? major : minor);
  row.writeAtStart(reason.isEmpty() ? path : reason, minor);
  painter->restore();
}

QSize CommandPaletteDelegate::sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const {
  return {0, rowHeight};
}

} // namespace Vela::UiBase
