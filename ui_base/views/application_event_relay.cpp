// SPDX-License-Identifier: MIT
#include "application_event_relay.h"

#include "base_view.h"
#include "covered_shortcuts.h"

#include <QCoreApplication>
#include <QPointer>
#include <QShortcutEvent>

namespace Vela::UiBase {

namespace {

QPointer<ApplicationEventRelay>& relay() {
  static QPointer<ApplicationEventRelay> instance; // a child of the application object
  return instance;
}

} // namespace

ApplicationEventRelay::ApplicationEventRelay(QObject* application) : QObject(application) {
  application->installEventFilter(this);
}

void ApplicationEventRelay::add(BaseView& view) {
  if (!relay())
    relay() = new ApplicationEventRelay(QCoreApplication::instance());
  relay()->m_views.append(&view);
}

void ApplicationEventRelay::remove(BaseView& view) {
  if (!relay())
    return;
  relay()->m_views.removeOne(&view);
}

QList<BaseView*> ApplicationEventRelay::views() { return relay() ? relay()->m_views : QList<BaseView*>(); }

bool ApplicationEventRelay::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Shortcut)
    return handleCoveredShortcut(*watched, *static_cast<QShortcutEvent*>(event));
  if (watched != parent())
    return false;
  QList<QPointer<BaseView>> views;
  views.reserve(m_views.size());
  for (BaseView* const view : std::as_const(m_views))
    views.append(view);
  for (const QPointer<BaseView>& view : std::as_const(views)) {
    if (view && view->eventFilter(watched, event))
      return true;
  }
  return false;
}

} // namespace Vela::UiBase
