// SPDX-License-Identifier: MIT
#include "view_cursors.h"

#include "base_view.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace Vela::UiBase {

void ViewCursors::moveTo(BaseView* view) {
  if (m_view == view)
    return;
  const auto shown = std::exchange(m_shown, {});
  if (!shown.empty())
    apply();
  m_view = view;
  keepPresent();
  m_shown = shown;
  if (!shown.empty())
    apply();
}

void ViewCursors::show(const InteractiveTool& tool, Kind kind, const QCursor& cursor) {
  keepPresent();
  m_shown.push_back({&tool, kind, cursor});
  apply();
}

void ViewCursors::takeAway(const InteractiveTool& tool, Kind kind) {
  const auto found = find(tool, kind);
  if (found == m_shown.end()) {
    if (m_view && m_shown.empty() && m_inReach)
      m_view->setCursor(Qt::ArrowCursor);
    return;
  }
  const bool inFront = std::next(found) == m_shown.end();
  m_shown.erase(found);
  if (inFront)
    apply();
}

bool ViewCursors::change(const InteractiveTool& tool, Kind kind, const QCursor& cursor) {
  const auto found = find(tool, kind);
  if (found == m_shown.end())
    return false;
  found->cursor = cursor;
  if (std::next(found) == m_shown.end())
    apply();
  return true;
}

void ViewCursors::clear() {
  if (m_shown.empty())
    return;
  m_shown.clear();
  apply();
}

void ViewCursors::setInReach(bool inReach) {
  if (m_inReach == inReach)
    return;
  keepPresent();
  if (!m_shown.empty() && !inReach)
    showOwn();
  m_inReach = inReach;
  if (!m_shown.empty())
    apply();
}

std::vector<ViewCursors::Shown>::iterator ViewCursors::find(const InteractiveTool& tool, Kind kind) {
  const auto found = std::find_if(m_shown.rbegin(), m_shown.rend(), [&](const Shown& shown) {
    return shown.tool == &tool && shown.kind == kind;
  });
  return found == m_shown.rend() ? m_shown.end() : std::prev(found.base());
}

// The application may have set another one over what was shown.
void ViewCursors::keepPresent() {
  if (!m_view)
    return;
  if (!m_shown.empty() && m_inReach)
    m_shown.back().cursor = m_view->cursor();
  else
    m_own = m_view->testAttribute(Qt::WA_SetCursor) ? std::optional(m_view->cursor()) : std::nullopt;
}

void ViewCursors::apply() {
  if (!m_view || !m_inReach)
    return;
  if (m_shown.empty())
    showOwn();
  else
    m_view->setCursor(m_shown.back().cursor);
}

void ViewCursors::showOwn() {
  if (!m_view)
    return;
  if (m_own)
    m_view->setCursor(*m_own);
  else
    m_view->unsetCursor();
}

} // namespace Vela::UiBase
