// SPDX-License-Identifier: MIT
#include "application_events.h"

#include <QCoreApplication>

namespace Vela::UiBase {

ApplicationEvents::ApplicationEvents(QObject* application) : QObject(application) {
  application->installEventFilter(this);
}

ApplicationEvents* ApplicationEvents::instance() {
  static QPointer<ApplicationEvents> events; // a child of the application object
  if (!events && QCoreApplication::instance())
    events = new ApplicationEvents(QCoreApplication::instance());
  return events;
}

void ApplicationEvents::watch(QObject& watcher, Types types) {
  Watch watch{&watcher, {}, false};
  for (const QEvent::Type type : types)
    watch.types.set(type);
  if (ApplicationEvents* const events = instance())
    events->add(watch);
}

void ApplicationEvents::watchApplication(QObject& watcher) {
  if (ApplicationEvents* const events = instance())
    events->add({&watcher, {}, true});
}

void ApplicationEvents::add(const Watch& watch) {
  m_watches.removeIf([](const Watch& each) { return !each.watcher; });
  m_types |= watch.types;
  m_watches.append(watch);
}

bool ApplicationEvents::Watch::wants(std::size_t type, bool ofApplication) const {
  return (application && ofApplication) || (type < types.size() && types[type]);
}

bool ApplicationEvents::eventFilter(QObject* watched, QEvent* event) {
  const auto type = static_cast<std::size_t>(event->type());
  const bool isWatched = type < m_types.size() && m_types[type];
  return (isWatched || watched == parent()) && ask(watched, event);
}

bool ApplicationEvents::ask(QObject* watched, QEvent* event) const {
  const QPointer<QObject> receiver(watched);
  const auto watches = m_watches; // who is asked may bring others
  for (auto each = watches.crbegin(); receiver && each != watches.crend(); ++each) {
    if (each->watcher && each->wants(event->type(), watched == parent()) &&
        each->watcher->eventFilter(watched, event))
      return true;
  }
  return !receiver;
}

} // namespace Vela::UiBase
