// SPDX-License-Identifier: MIT
#include "view_notifications.h"

#include "base_view.h"
#include "presentation.h"

#include <ui_base/notifications/floating_widget.h>
#include <ui_base/notifications/notification_bar.h>

#include <utility>

namespace Vela::UiBase {

ViewNotifications::ViewNotifications() = default;
ViewNotifications::~ViewNotifications() = default;

NotificationBar& ViewNotifications::barOver(BaseView& view) {
  if (!m_bar || !m_host) {
    drop();
    m_bar = new NotificationBar(&view);
    m_host = new FloatingWidget(&view);
    m_host->addWidget(m_bar);
    m_host->setVisible(Presentation::of(view)->mayNotify(view));
  }
  return *m_bar;
}

NotificationBar* ViewNotifications::bar() const { return m_bar; }

void ViewNotifications::setVisible(bool visible) {
  if (m_host)
    m_host->setVisible(visible);
}

void ViewNotifications::drop() {
  m_bar = nullptr; // a child of the host
  const QPointer<FloatingWidget> host = std::exchange(m_host, nullptr);
  if (!host)
    return;
  host->hide();
  if (host)
    host->deleteLater(); // it may be a button of the bar that led here
}

} // namespace Vela::UiBase
