// SPDX-License-Identifier: MIT
#include "covered_children.h"

#include "base_view.h"
#include "presentation.h"

#include <ui_base/popups/arrowed_window.h>

#include <QChildEvent>

namespace Vela::UiBase {

namespace {

// Not as setEnabled(false) would: that marks a widget which its application disabled, and the mark is how
// the application's own calls are told from ours.
void disable(QWidget& child) {
  if (child.testAttribute(Qt::WA_ForceDisabled))
    return;
  const QPointer<QWidget> guard(&child);
  child.setEnabled(false);
  if (guard)
    guard->setAttribute(Qt::WA_ForceDisabled, false);
}

// Menus and tooltips, also those of what is in front, lie over the whole window.
bool isPopup(const QWidget& child) {
  return child.parentWidget()->isWindow() && qobject_cast<const ArrowedWindow*>(&child);
}

QWidget* asWidget(QObject* object) {
  return object->isWidgetType() ? static_cast<QWidget*>(object) : nullptr;
}

} // namespace

CoveredChildren::CoveredChildren(BaseView& covered) : m_view(&covered) { covered.installEventFilter(this); }

CoveredChildren::~CoveredChildren() = default;

bool CoveredChildren::isBehind(const BaseView& covered, const QWidget& child) {
  if (child.isWindow() || isPopup(child))
    return false;
  const auto* const view = qobject_cast<const BaseView*>(&child);
  return !view || Presentation::of(*view) != Presentation::of(covered);
}

bool CoveredChildren::isCovered(const QWidget& child) const {
  return m_view && child.parentWidget() == m_view && isBehind(*m_view, child);
}

void CoveredChildren::update() {
  const QPointer<CoveredChildren> self(this);
  const auto known = m_children;
  for (const QPointer<QWidget>& child : known) {
    if (self && child && !isCovered(*child))
      remove(*child);
  }
  if (!self || !m_view)
    return;
  QList<QPointer<QWidget>> present;
  for (QObject* const child : m_view->children()) {
    if (QWidget* const widget = asWidget(child))
      present.append(widget);
  }
  for (const QPointer<QWidget>& child : std::as_const(present)) {
    if (self && child)
      add(*child);
  }
}

void CoveredChildren::release() {
  const QPointer<CoveredChildren> self(this);
  if (m_view)
    m_view->removeEventFilter(this);
  const auto known = m_children;
  for (const QPointer<QWidget>& child : known) {
    if (self && child)
      remove(*child);
  }
}

void CoveredChildren::add(QWidget& child) {
  if (!isCovered(child) || m_children.contains(&child))
    return;
  m_children.append(&child);
  child.installEventFilter(this);
  disable(child);
}

void CoveredChildren::remove(QWidget& child) {
  if (!m_children.removeOne(&child))
    return;
  child.removeEventFilter(this);
  if (!child.testAttribute(Qt::WA_ForceDisabled))
    child.setEnabled(true);
}

void CoveredChildren::raiseFront() {
  const QPointer<CoveredChildren> self(this);
  if (m_view)
    Presentation::of(*m_view)->raiseOver(*m_view);
  QList<QPointer<QWidget>> popups;
  if (self && m_view) {
    for (QObject* const child : m_view->children()) {
      if (QWidget* const widget = asWidget(child); widget && isPopup(*widget))
        popups.append(widget);
    }
  }
  for (const QPointer<QWidget>& popup : std::as_const(popups)) {
    if (popup)
      popup->raise();
  }
}

bool CoveredChildren::eventFilter(QObject* watched, QEvent* event) {
  const QEvent::Type type = event->type();
  if (type == QEvent::ChildAdded && watched == m_view) {
    if (QWidget* const child = asWidget(static_cast<QChildEvent*>(event)->child()))
      add(*child);
    raiseFront();
  } else if (type == QEvent::ChildPolished && watched == m_view) { // what it is was not known before
    if (QWidget* const child = asWidget(static_cast<QChildEvent*>(event)->child());
        child && !isCovered(*child))
      remove(*child);
  } else if (type == QEvent::ZOrderChange && watched != m_view) {
    if (isCovered(*static_cast<QWidget*>(watched)))
      raiseFront();
  } else if (type == QEvent::EnabledChange && watched != m_view) {
    if (auto* const child = static_cast<QWidget*>(watched); child->isEnabled() && isCovered(*child))
      disable(*child);
  } else if (type == QEvent::ParentChange && watched != m_view) {
    if (auto* const child = static_cast<QWidget*>(watched); !isCovered(*child))
      remove(*child);
  }
  return false;
}

} // namespace Vela::UiBase
