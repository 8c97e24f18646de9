// SPDX-License-Identifier: MIT
#include "menu_bar_layout.h"

#include <QStyle>
#include <QToolButton>

namespace Vela::UiBase {

MenuBarLayout::MenuBarLayout(QWidget* bar, QToolButton* overflowButton)
    : QHBoxLayout(bar), m_button(overflowButton) {
  m_button->hide();
}

bool MenuBarLayout::overflows(const QWidget* item) const { return m_past.contains(item); }

QSize MenuBarLayout::minimumSize() const {
  const QSize all = QHBoxLayout::minimumSize();
  return {std::min(all.width(), m_button->sizeHint().width()), all.height()};
}

void MenuBarLayout::setGeometry(const QRect& rect) {
  m_past.clear();
  if (QHBoxLayout::minimumSize().width() > rect.width()) {
    placeWhatFits(rect);
    return;
  }
  m_button->hide();
  QHBoxLayout::setGeometry(rect);
}

void MenuBarLayout::placeWhatFits(const QRect& rect) {
  QLayout::setGeometry(rect); // NOLINT(bugprone-parent-virtual-call): the row is not laid out by the box
  const Qt::LayoutDirection direction = parentWidget()->layoutDirection();
  const int buttonWidth = std::min(m_button->sizeHint().width(), rect.width());
  const int end = rect.width() - buttonWidth;
  int x = 0;
  for (int i = 0; i < count(); ++i) {
    QLayoutItem* const item = itemAt(i);
    if (item->isEmpty())
      continue;
    const int width = item->minimumSize().width();
    if (m_past.isEmpty() && x + width > end)
      x = rect.width();
    const QRect place = QStyle::visualRect(direction, rect, {rect.x() + x, rect.y(), width, rect.height()});
    x += width;
    if (m_past.isEmpty() && x <= end) {
      item->setGeometry(place);
    } else if (QWidget* const widget = item->widget()) {
      m_past += widget;
      widget->setGeometry(place); // the layout's item would keep it at a place of its own
    }
  }
  m_button->setGeometry(
      QStyle::visualRect(direction, rect, {rect.x() + end, rect.y(), buttonWidth, rect.height()}));
  m_button->show();
}

} // namespace Vela::UiBase
