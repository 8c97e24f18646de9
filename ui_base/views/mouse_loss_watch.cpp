// SPDX-License-Identifier: MIT
#include "mouse_loss_watch.h"

#include <QEvent>
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

bool MouseLossWatch::eventFilter(QObject* watched, QEvent* event) {
  const QEvent::Type type = event->type();
  const bool lost = type == QEvent::WindowBlocked || type == QEvent::WindowDeactivate ||
                    (type == QEvent::FocusOut && watched == m_view);
  if (lost)
    m_lost();
  return false;
}

} // namespace Vela::UiBase
