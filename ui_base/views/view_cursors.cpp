// SPDX-License-Identifier: MIT
#include "view_cursors.h"

#include "base_view.h"

namespace Vela::UiBase {

void ViewCursors::moveTo(BaseView* view) {
  if (m_view == view)
    return;
  restoreAll();
  m_view = view;
}

void ViewCursors::replace(BaseView* view, const QCursor& cursor) {
  if (!view)
    return;
  moveTo(view);
  m_saved.push(view->cursor());
  view->setCursor(cursor);
}

void ViewCursors::restore(BaseView* view) {
  if (!view)
    return;
  moveTo(view);
  view->setCursor(m_saved.isEmpty() ? QCursor(Qt::ArrowCursor) : m_saved.pop());
}

void ViewCursors::restoreAll() {
  if (m_view && !m_saved.isEmpty())
    m_view->setCursor(m_saved.constFirst());
  m_saved.clear();
  m_view = nullptr;
}

} // namespace Vela::UiBase
