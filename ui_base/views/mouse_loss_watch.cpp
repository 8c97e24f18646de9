// SPDX-License-Identifier: MIT
#include "mouse_loss_watch.h"

#include "base_view_p.h"

#include <QWidget>

#include <utility>

namespace Vela::UiBase {

MouseLossWatch::MouseLossWatch(std::function<void()> lost) : m_lost(std::move(lost)) {}

void MouseLossWatch::start(QWidget* view) {
  if (!view || (m_view == view && m_window == view->window()))
    return;
  stop();
  m_view = view;
  m_window = view->window();
  m_view->installEventFilter(this);
  m_window->installEventFilter(this);
}

void MouseLossWatch::stop() {
  if (const QPointer<QWidget> view = std::exchange(m_view, nullptr))
    view->removeEventFilter(this);
  if (const QPointer<QWidget> window = std::exchange(m_window, nullptr))
    window->removeEventFilter(this);
}

bool MouseLossWatch::isLoss(const QObject* watched, QEvent::Type type) const {
  switch (type) {
  case QEvent::WindowBlocked:
  case QEvent::WindowDeactivate:
    return true;
  case QEvent::FocusOut:
    return watched == m_view;
  case QEvent::EnabledChange:
    return watched == m_view && !m_view->isEnabled();
  default:
    return false;
  }
}

// What ends with the mouse may delete the watch, or what it watches.
bool MouseLossWatch::eventFilter(QObject* watched, QEvent* event) {
  if (!isLoss(watched, event->type()))
    return false;
  const QPointer<QObject> receiver(watched);
  const auto lost = m_lost;
  const ViewsInUse inUse;
  lost();
  return !receiver;
}

} // namespace Vela::UiBase
