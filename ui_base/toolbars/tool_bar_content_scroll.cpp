// SPDX-License-Identifier: MIT
#include "tool_bar_content.h"

#include <ui_base/toolbars/tool_button.h>

#include <algorithm>

namespace Vela::UiBase {

ToolBarContent::Span ToolBarContent::span(const QWidget& button) const {
  const QRect rect = button.geometry().translated(button.parentWidget()->pos());
  if (!horizontal())
    return {rect.top(), rect.bottom() + 1};
  if (isRightToLeft())
    return {m_inner->width() - rect.right() - 1, m_inner->width() - rect.left()};
  return {rect.left(), rect.right() + 1};
}

bool ToolBarContent::fit(const QRect& area, int moreLength) {
  m_area = area;
  const QSize needed = neededSize();
  m_scrolls = along(needed) > along(area.size());
  m_room = std::max(0, along(area.size()) - (m_scrolls ? moreLength : 0));
  QSize inner = area.size();
  if (m_scrolls && horizontal())
    inner.setWidth(needed.width());
  else if (m_scrolls)
    inner.setHeight(needed.height());
  m_inner->resize(inner);
  activate();
  if (!m_scrolls)
    m_scroll = 0;
  showPart(area);
  // What moves the buttons only because the bar has another size is known to it.
  if (const Seen now = look(); now.needed == m_seen.needed && now.buttons == m_seen.buttons)
    m_seen = now;
  return m_scrolls;
}

// Never a part of a button, unless there is no room for a whole one.
void ToolBarContent::showPart(const QRect& area) {
  if (!m_scrolls) {
    setGeometry(area);
    m_inner->move(0, 0);
    return;
  }
  int length = 0;
  const QList<ToolButton*> all = buttons();
  for (const ToolButton* const button : all) {
    const Span place = span(*button);
    if (!button->isHidden() && place.end - m_scroll <= m_room)
      length = std::max(length, place.end - m_scroll);
  }
  if (length <= 0)
    length = m_room;
  if (!horizontal()) {
    setGeometry(area.x(), area.y(), area.width(), length);
    m_inner->move(0, -m_scroll);
  } else if (isRightToLeft()) {
    setGeometry(area.right() + 1 - length, area.y(), length, area.height());
    m_inner->move(length - m_inner->width() + m_scroll, 0);
  } else {
    setGeometry(area.x(), area.y(), length, area.height());
    m_inner->move(-m_scroll, 0);
  }
}

bool ToolBarContent::scrollTo(const QWidget& button) {
  const Span wanted = span(button);
  if (!m_scrolls || (wanted.start >= m_scroll && wanted.end <= m_scroll + m_room))
    return false;
  int scroll = wanted.start;
  if (wanted.end > m_scroll + m_room) {
    // The first button that leaves room for the wanted one.
    const QList<ToolButton*> all = buttons();
    for (const ToolButton* const before : all) {
      const Span place = span(*before);
      if (!before->isHidden() && wanted.end - place.start <= m_room)
        scroll = std::min(scroll, place.start);
    }
  }
  m_scroll = scroll;
  showPart(m_area);
  return true;
}

QList<ToolButton*> ToolBarContent::leftOut() const {
  QList<ToolButton*> out;
  if (!m_scrolls)
    return out;
  const int shown = along(size());
  const QList<ToolButton*> all = buttons();
  for (ToolButton* const button : all) {
    const Span place = span(*button);
    if (!button->isHidden() && (place.start < m_scroll || place.end > m_scroll + shown))
      out.append(button);
  }
  return out;
}

} // namespace Vela::UiBase
