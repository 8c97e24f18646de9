// SPDX-License-Identifier: MIT
#include "application_event_relay.h"

#include "base_view.h"
#include "base_view_p.h"
#include "covered_shortcuts.h"
#include "presentation.h"

#include <ui_base/core/application_events.h>

#include <QApplication>
#include <QKeyEvent>
#include <QPointer>
#include <QShortcutEvent>

#include <algorithm>

namespace Vela::UiBase {

namespace {

QPointer<ApplicationEventRelay>& relay() {
  static QPointer<ApplicationEventRelay> instance; // a child of the application object
  return instance;
}

} // namespace

ApplicationEventRelay::ApplicationEventRelay(QObject* application) : QObject(application) {
  ApplicationEvents::watch(
      *this, {QEvent::Shortcut, QEvent::ShortcutOverride, QEvent::WindowBlocked, QEvent::WindowDeactivate});
  ApplicationEvents::watchApplication(*this);
  if (const auto* const widgets = qobject_cast<QApplication*>(application))
    connect(widgets, &QApplication::focusChanged, this, &ApplicationEventRelay::focusChanged);
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

// It died, was moved or gave the focus away: in the middle of what else may be moving the focus.
void ApplicationEventRelay::focusChanged(const QWidget* before, const QWidget* now) {
  if (!before || now)
    return;
  const QObject* place = before;
  while (place && !qobject_cast<const BaseView*>(place))
    place = place->parent();
  m_lastFocused = const_cast<BaseView*>(static_cast<const BaseView*>(place));
  QMetaObject::invokeMethod(this, &ApplicationEventRelay::giveFocusBack, Qt::QueuedConnection);
}

void ApplicationEventRelay::giveFocusBack() {
  const QWidget* const window = QApplication::activeWindow();
  if (!relay() || !window || window->focusWidget())
    return;
  QList<BaseView*> candidates = views();
  candidates.prepend(relay()->m_lastFocused.data());
  for (const BaseView* const view : std::as_const(candidates)) {
    if (view && view->window() == window && view->isVisible() && view->isEnabled())
      return Presentation::of(*view)->focusFront();
  }
}

bool ApplicationEventRelay::anyCovered() const {
  return std::any_of(m_views.cbegin(), m_views.cend(),
                     [](const BaseView* view) { return Presentation::of(*view)->isCovered(*view); });
}

QList<BaseView*> ApplicationEventRelay::views() { return relay() ? relay()->m_views : QList<BaseView*>(); }

bool ApplicationEventRelay::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Shortcut)
    return handleCoveredShortcut(*watched, *static_cast<QShortcutEvent*>(event));
  if (event->type() == QEvent::ShortcutOverride && watched == QApplication::focusWidget() && anyCovered() &&
      isCoveredShortcut(*static_cast<QKeyEvent*>(event))) {
    event->accept();
    return true;
  }
  if (event->type() == QEvent::WindowBlocked || event->type() == QEvent::WindowDeactivate)
    return loseMouse(*watched, *event);
  if (watched != parent())
    return false;
  const QList<QPointer<BaseView>> views(m_views.cbegin(), m_views.cend());
  for (const QPointer<BaseView>& view : views) {
    if (view && view->eventFilter(watched, event))
      return true;
  }
  return false;
}

// Before Qt tells what is in the window, one after another: what ends with the mouse may delete others there.
bool ApplicationEventRelay::loseMouse(const QObject& place, const QEvent& event) const {
  QList<QPointer<BaseView>> views;
  for (BaseView* const view : m_views) {
    if (view == &place || view->window() == &place)
      views.append(view);
  }
  const QPointer<const QObject> receiver(&place);
  const ViewsInUse inUse;
  for (const QPointer<BaseView>& view : std::as_const(views)) {
    if (view)
      view->loseMouse(event);
  }
  return !receiver;
}

} // namespace Vela::UiBase
